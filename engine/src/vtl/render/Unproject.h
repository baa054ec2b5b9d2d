#pragma once

#include "vtl/math/Mat4.h"

namespace Vantrel {

/**
 * The point of the world that shows at a place of the window: `winX` and `winY` in pixels from the bottom
 * left, `winZ` the depth from 0 to 1, `viewport` its x, y, width and height. False where the two matrices
 * together have no inverse or the point is nowhere.
 */
bool vtlGluUnProject(float winX, float winY, float winZ, const Mat4& view, const Mat4& projection,
                     const int viewport[4], float* x, float* y, float* z);

} // namespace Vantrel
