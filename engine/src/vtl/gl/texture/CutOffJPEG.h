#pragma once

#include <cstddef>
#include <span>

namespace Vantrel {

/**
 * True for a JPEG file that ends before its image does, which the decoder would fill up with grey. Source:
 * ITU-T T.81, annex B.
 */
bool isCutOffJPEG(std::span<const std::byte> file);

} // namespace Vantrel
