#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace Vantrel {

/** Blue, green and red. */
constexpr std::size_t bytesOfCapturedPixel = 3;

/**
 * Reads what has been drawn to the window since the latest swap, whatever frame buffer is bound: as many
 * pixels from its bottom left, three bytes each, the top row first, without anything between rows. `out` has
 * room for exactly that. Needs a context.
 */
void readBackBuffer(int width, int height, std::span<std::uint8_t> out);

} // namespace Vantrel
