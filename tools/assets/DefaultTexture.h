#pragma once

#include <string>

namespace Assets {

/**
 * A Windows bitmap of a board of squares in two greys with a thin orange frame: seen at once, and its edges
 * tell how it is laid.
 */
std::string defaultTexture();

} // namespace Assets
