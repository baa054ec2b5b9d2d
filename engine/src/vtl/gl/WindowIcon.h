#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace Vantrel {

constexpr int windowIconSide = 32;
constexpr std::size_t windowIconPixelCount = 32UL * 32UL;

/** An antenna mast that sends a beam, row by row from the top, each pixel 0xRRGGBBAA. */
std::array<std::uint32_t, windowIconPixelCount> windowIconPixels();

} // namespace Vantrel
