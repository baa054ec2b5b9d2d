#pragma once

#include "tools/assets/Picture.h"

namespace Assets {

/**
 * A fair day: six squares side by side, which show what is towards +Y, +X, -Y, -X, down and up from their
 * middle. The sun stands at the zenith. The outer pixels of two squares that meet in an edge are alike.
 * Steeply below the horizon, where ground lies before it, the sky is mirrored: the square below ends beside
 * the one above, and a filter takes half of each there.
 */
Picture skyPicture();

} // namespace Assets
