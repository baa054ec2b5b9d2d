#pragma once

#include "tools/assets/Picture.h"
#include "tools/assets/TriangleModel.h"

namespace Assets {

/**
 * A slab of 26.666666 along X, 10 along Y and 1 along Z about the origin. The texture's U runs across it and
 * its V along it.
 */
TriangleModel runwaySlab();

/**
 * Asphalt for the whole width and 26.667 m of length, after which it repeats: edge lines, a dash of the
 * centre line, and the rubber of many landings.
 */
Picture runwayPicture();

/** Threshold bars for half the width, on nothing. Alike from both ends. */
Picture pianoKeyPicture();

} // namespace Assets
