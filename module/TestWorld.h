#pragma once

#include "vtl/scene/light/MGLSkyBox.h"

namespace Vantrel {

class WorldContainer;

/**
 * Puts a place to fly through into a world, which owns it from then on: sky, light, ground with a grid of 100
 * m, a runway along X and some solids beside it. It stands in until there is an airport.
 */
void addTestWorld(WorldContainer& world, MGLSkyBox::CameraHolder cameraHolder);

} // namespace Vantrel
