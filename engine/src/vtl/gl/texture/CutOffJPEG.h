#pragma once

#include <cstddef>
#include <span>

namespace Vantrel {

/**
 * True for a JPEG file without the mark of its image's end: it has been cut off, and the decoder would fill
 * it up with grey. Source: ITU-T T.81, annex B.
 */
bool isCutOffJPEG(std::span<const std::byte> file);

} // namespace Vantrel
