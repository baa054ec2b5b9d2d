#pragma once

#include "tools/assets/Picture.h"
#include "tools/assets/TriangleModel.h"

namespace Assets {

/**
 * 80 m of meadow, which repeats without a seam. What is larger than a few metres is weak, so that no pattern
 * of repeats shows from the air.
 */
Picture grassPicture();

/** A flat square of 400 by 400 about the origin; the picture covers it about once, bent a little. */
TriangleModel grassFloor();

} // namespace Assets
