#include "tools/assets/Runway.h"

#include "tools/assets/Noise.h"
#include "tools/assets/Shapes.h"

#include <cmath>

namespace Assets {
namespace {

/** What a runway of usual width measures, in metres. */
constexpr float width = 45;
constexpr float length = 26.666666F;

/** Noise of streaks along V: `across` on the width, `along` on the length. */
float streaks(float u, float v, int across, int along, std::uint32_t seed) {
    return noise(u * static_cast<float>(across), v * static_cast<float>(along), across, along, seed);
}

/** 1 where the paint is whole. */
float paintLeft(float u, float v) {
    const float worn = 0.6F * fractalNoise(u, v, 24, 5, 0.7F, 701) + 0.35F * streaks(u, v, 160, 3, 711);
    return mix(0.6F, 0.96F, smoothStep(-1.1F, -0.1F, worn));
}

/** Bands on both sides of the centre line, where the wheels touch down. */
float rubberAt(float u, float v) {
    const float side = std::abs(u - 0.5F) * width;
    const float track = std::exp(-(side - 4.2F) * (side - 4.2F) / 7.0F);
    const float streak = 0.62F + 0.3F * streaks(u, v, 90, 1, 721) + 0.25F * streaks(u, v, 260, 2, 731);
    return std::clamp(0.62F * track * streak, 0.0F, 0.8F);
}

/** Light and dark of the stones and of the strips in which the asphalt was laid. */
float asphaltLight(float u, float v) {
    constexpr float strips = 6;
    const float stone = randomAt(static_cast<int>(u * 1024), static_cast<int>(v * 1024), 741) - 0.5F;
    const float bend = 0.02F * streaks(u, v, 12, 8, 751);
    const float seam = std::abs(u * strips - std::round(u * strips) + bend) * width / strips;
    return 1 + 0.22F * stone + 0.09F * fractalNoise(u, v, 40, 4, 0.8F, 761) +
           0.06F * streaks(u, v, 30, 1, 771) - 0.3F * coverage(seam - 0.04F, 0.08F);
}

/** How much of the point is painted. */
float markingAt(float u, float v) {
    constexpr float pixel = width / 1024;
    constexpr float edgeLine = 0.9F;
    constexpr float edgeLineFromMiddle = width / 2 - 1.4F;
    constexpr float dash = 15;
    const float x = (u - 0.5F) * width;
    const float y = (v - 0.5F) * length;
    const float edge = coverage(std::abs(std::abs(x) - edgeLineFromMiddle) - edgeLine / 2, pixel);
    return std::max(edge, coverage(outsideBox(x, y, 0.45F, dash / 2), pixel));
}

} // namespace

TriangleModel runwaySlab() {
    constexpr float x = 13.333333F;
    constexpr float y = 5;
    constexpr float z = 0.5F;
    constexpr float keel = 0.001F;
    TriangleModel slab;
    // The viewer draws the runway over whatever is there, hidden or not: sides would show through.
    slab.addQuad({{{-keel, keel, -z}, {keel, keel, -z}, {keel, -keel, -z}, {-keel, -keel, -z}}});
    slab.addQuad({{{-x, y, z}, {-x, -y, z}, {x, -y, z}, {x, y, z}}});
    return slab;
}

Picture runwayPicture() {
    constexpr int side = 1024;
    return Picture::ofUnitSquare(side, side, [](float u, float v) {
        constexpr Color asphalt = bytes(112, 112, 110);
        constexpr Color rubber = bytes(44, 43, 43);
        constexpr Color paint = bytes(232, 231, 224);
        const Color bare = mix(asphalt, paint, markingAt(u, v) * paintLeft(u, v));
        return mix(bare, rubber, rubberAt(u, v)) * asphaltLight(u, v);
    });
}

Picture pianoKeyPicture() {
    constexpr int side = 512;
    constexpr int bars = 6;
    constexpr float barWidth = 1.8F;
    constexpr float spacing = 3.3F;
    constexpr float barLength = 30;
    return Picture::ofUnitSquare(side, side, [](float u, float v) {
        constexpr Color paint = bytes(236, 235, 229);
        const float across = (u - 0.5F) * width / 2;
        const float nearest =
            std::clamp(std::round(across / spacing + 0.5F) - 0.5F, 0.5F - bars / 2.0F, bars / 2.0F - 0.5F) *
            spacing;
        const float outside = outsideBox(across - nearest, (v - 0.5F) * width, barWidth / 2, barLength / 2);
        const float light = 1 + 0.05F * fractalNoise(u, v, 40, 3, 0.8F, 801);
        const Color color = paint * light;
        return Color{color.r, color.g, color.b, coverage(outside, width / 2 / side) * paintLeft(u, v)};
    });
}

} // namespace Assets
