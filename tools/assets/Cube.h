#pragma once

#include "tools/assets/Picture.h"
#include "tools/assets/TriangleModel.h"

namespace Assets {

/** A cube of 4 by 4 by 4 about the origin with rounded edges; each side shows the whole picture. */
TriangleModel roundedCube();

/** One side of something moulded of shiny red plastic. */
Picture redPlasticPicture();

} // namespace Assets
