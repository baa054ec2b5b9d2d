#pragma once

#include "tools/assets/Picture.h"

namespace Assets {

/** A board of squares in two greys with a thin orange frame: seen at once, and its edges tell how it is laid.
 */
Picture defaultTexturePicture();

} // namespace Assets
