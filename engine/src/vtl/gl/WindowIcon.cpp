#include "vtl/gl/WindowIcon.h"

#include <cstdlib>

namespace Vantrel {
namespace {

constexpr std::uint32_t nothing = 0x00000000;
constexpr std::uint32_t sky = 0x1D3A6EFF;
constexpr std::uint32_t ground = 0x4C7F3AFF;
constexpr std::uint32_t steel = 0xF2F2F2FF;
constexpr std::uint32_t lamp = 0xE2402BFF;
constexpr std::uint32_t beam = 0xF5D142FF;

constexpr int mastX = 10;
constexpr int topY = 9;
constexpr int groundY = 27;

bool isOutsideRoundedSquare(int x, int y) {
    constexpr int radius = 5;
    constexpr int last = windowIconSide - 1;
    const int dx = std::abs(2 * x - last) - (last - 2 * radius);
    const int dy = std::abs(2 * y - last) - (last - 2 * radius);
    return dx > 0 && dy > 0 && dx * dx + dy * dy > 4 * radius * radius;
}

/** Two legs that spread downward, with a brace every few rows. */
bool isMast(int x, int y) {
    const int halfWidth = (y - topY) / 4;
    const int off = std::abs(x - mastX);
    constexpr int braceEvery = 4;
    return y > topY && y < groundY && (off == halfWidth || (off < halfWidth && (y - topY) % braceEvery == 0));
}

bool isLamp(int x, int y) {
    const int dx = x - mastX;
    const int dy = y - topY;
    return dx * dx + dy * dy <= 5;
}

/** Arcs around the lamp within a wedge that opens to the right. */
bool isBeam(int x, int y) {
    const int dx = x - mastX;
    const int dy = y - topY;
    const bool isInWedge = dx > 0 && 3 * std::abs(dy) <= 2 * dx;
    constexpr int arcEvery = 5;
    const int radius = (std::abs(dx) + arcEvery / 2) / arcEvery * arcEvery;
    const int off = dx * dx + dy * dy - radius * radius;
    return isInWedge && off >= -radius && off <= radius;
}

std::uint32_t pixelAt(int x, int y) {
    if (isOutsideRoundedSquare(x, y)) {
        return nothing;
    }
    if (isLamp(x, y)) {
        return lamp;
    }
    if (isMast(x, y)) {
        return steel;
    }
    if (isBeam(x, y)) {
        return beam;
    }
    return y >= groundY ? ground : sky;
}

} // namespace

std::array<std::uint32_t, windowIconPixelCount> windowIconPixels() {
    std::array<std::uint32_t, windowIconPixelCount> pixels{};
    int i = 0;
    for (std::uint32_t& pixel : pixels) {
        pixel = pixelAt(i % windowIconSide, i / windowIconSide);
        ++i;
    }
    return pixels;
}

} // namespace Vantrel
