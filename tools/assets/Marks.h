#pragma once

#include "tools/assets/Picture.h"

namespace Assets {

/**
 * A pulse of light that runs towards +U: its front is sharp and its tail fades out. The same all along V, in
 * which the strip is scrolled as well, and white, to be tinted.
 */
Picture lightPulsePicture();

/**
 * A log-periodic dipole array as seen from above, twice as wide as high, which radiates towards +U, on white.
 * What belongs to it is darker than 0.85, up to its rim.
 */
Picture dipoleArrayPicture();

/** Galvanised mesh with open meshes, which repeats. */
Picture meshPicture();

} // namespace Assets
