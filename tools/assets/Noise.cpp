#include "tools/assets/Noise.h"

#include "tools/assets/Numbers.h"

#include <array>

namespace Assets {
namespace {

std::uint32_t hashed(std::uint32_t x, std::uint32_t y, std::uint32_t seed) {
    std::uint32_t bits = x * 0x9E3779B1U ^ y * 0x85EBCA77U ^ seed * 0xC2B2AE3DU;
    bits = (bits ^ bits >> 15U) * 0x2C1B3C6DU;
    bits = (bits ^ bits >> 12U) * 0x297A2D39U;
    return bits ^ bits >> 15U;
}

int wrapped(int i, int period) {
    const int rest = i % period;
    return rest < 0 ? rest + period : rest;
}

/** How a plane through 0 at a grid point, sloped in one of sixteen ways, stands at (x, y) from there. */
float slopeAt(std::uint32_t bits, float x, float y) {
    struct Slope {
        float x;
        float y;
    };
    constexpr float c = 0.92387953F;
    constexpr float s = 0.38268343F;
    constexpr float d = 0.70710678F;
    constexpr std::array<Slope, 16> slopes{{{1, 0},
                                            {c, s},
                                            {d, d},
                                            {s, c},
                                            {0, 1},
                                            {-s, c},
                                            {-d, d},
                                            {-c, s},
                                            {-1, 0},
                                            {-c, -s},
                                            {-d, -d},
                                            {-s, -c},
                                            {0, -1},
                                            {s, -c},
                                            {d, -d},
                                            {c, -s}}};
    const Slope& slope = slopes[bits % slopes.size()];
    return slope.x * x + slope.y * y;
}

float fade(float t) {
    return t * t * t * (t * (t * 6.0F - 15.0F) + 10.0F);
}

} // namespace

float randomAt(int x, int y, std::uint32_t seed) {
    return static_cast<float>(hashed(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y), seed) >>
                              8U) /
           static_cast<float>(1U << 24U);
}

float noise(float x, float y, int periodX, int periodY, std::uint32_t seed) {
    constexpr float mostOfOneScale = 0.70710678F;
    const int left = wholeBelow(x);
    const int low = wholeBelow(y);
    const float fx = x - static_cast<float>(left);
    const float fy = y - static_cast<float>(low);
    const auto slope = [&](int dx, int dy) {
        return slopeAt(hashed(static_cast<std::uint32_t>(wrapped(left + dx, periodX)),
                              static_cast<std::uint32_t>(wrapped(low + dy, periodY)), seed),
                       fx - static_cast<float>(dx), fy - static_cast<float>(dy));
    };
    const float across = fade(fx);
    return mix(mix(slope(0, 0), slope(1, 0), across), mix(slope(0, 1), slope(1, 1), across), fade(fy)) /
           mostOfOneScale;
}

float fractalNoise(float u, float v, int cells, int octaves, float gain, std::uint32_t seed) {
    float sum = 0;
    float weight = 1;
    for (int octave = 0; octave < octaves; ++octave, weight *= gain, cells *= 2) {
        const auto scale = static_cast<float>(cells);
        sum += weight * noise(u * scale, v * scale, cells, cells, seed + static_cast<std::uint32_t>(octave));
    }
    return sum;
}

} // namespace Assets
