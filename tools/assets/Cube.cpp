#include "tools/assets/Cube.h"

#include "tools/assets/Noise.h"
#include "tools/assets/Shapes.h"

#include <array>
#include <cmath>

namespace Assets {
namespace {

constexpr float half = 2;
constexpr float radius = 0.5F; // much, so that light from above gets round to the sides
constexpr float flat = half - radius;

/** Places of the lines of a side's net, close together on the rounding. */
constexpr std::array lines{-half,       -half + 0.1F, -half + 0.2F, -half + 0.3F, -half + 0.4F,
                           -flat,       -flat + 0.1F, flat - 0.1F,  flat,         half - 0.4F,
                           half - 0.3F, half - 0.2F,  half - 0.1F,  half};

float restOf(float place) {
    return place - std::clamp(place, -flat, flat);
}

/** The point of the rounded cube for one of the sharp one. */
Point rounded(const Point& sharp) {
    const Point rest{restOf(sharp.x), restOf(sharp.y), restOf(sharp.z)};
    const float size = std::sqrt(rest.x * rest.x + rest.y * rest.y + rest.z * rest.z);
    return sharp + rest * (radius / size - 1);
}

/** A point of a side that looks along +X, -X, +Y, -Y, +Z or -Z. */
Point onSide(int side, float u, float v) {
    switch (side) {
    case 0:
        return {half, u, v};
    case 1:
        return {-half, -u, v};
    case 2:
        return {-u, half, v};
    case 3:
        return {u, -half, v};
    case 4:
        return {u, v, half};
    default:
        return {u, -v, -half};
    }
}

float onTexture(float place) {
    return (place + half) / (2 * half);
}

} // namespace

TriangleModel roundedCube() {
    constexpr int sides = 6;
    constexpr auto count = static_cast<std::uint32_t>(lines.size());
    TriangleModel cube;
    for (int side = 0; side < sides; ++side) {
        for (std::uint32_t i = 0; i < count * count; ++i) {
            const float u = lines[i % count];
            const float v = lines[i / count];
            const std::uint32_t vertex =
                cube.addVertex(rounded(onSide(side, u, v)), {onTexture(u), onTexture(v)});
            if (i % count > 0 && i / count > 0) {
                cube.addFace({vertex - count - 1, vertex - count, vertex, vertex - 1});
            }
        }
    }
    return cube;
}

Picture redPlasticPicture() {
    constexpr int side = 256;
    return Picture::ofUnitSquare(side, side, [](float across, float up) {
        constexpr Color deep = bytes(178, 10, 16);
        constexpr Color bright = bytes(248, 36, 36);
        constexpr Color shine{1.0F, 0.93F, 0.9F};
        const float u = 2 * across - 1;
        const float v = 2 * up - 1;
        const float rim = smoothStep(-0.5F, 0.0F, outsideBox(u, v, 1, 1, 0.3F));
        const Color body = mix(bright, deep, 0.75F * rim + 0.2F * (1 - v) * (1 - rim));
        // A window's light, bent by the moulding.
        const float window = outsideBox(u + 0.34F + 0.06F * v, v - 0.5F - 0.1F * u * u, 0.42F, 0.19F, 0.14F);
        return mix(body, shine, 0.5F * smoothStep(0.06F, -0.12F, window) * (0.6F + 0.4F * v));
    });
}

} // namespace Assets
