#pragma once

#include "tools/assets/Picture.h"

namespace Assets {

/**
 * A fair day: six squares side by side, which show what is towards +Y, +X, -Y, -X, down and up from their
 * middle. The sun stands at the zenith, and below the horizon there is country. The outer pixels of two
 * squares that meet in an edge are alike.
 */
Picture skyPicture();

} // namespace Assets
