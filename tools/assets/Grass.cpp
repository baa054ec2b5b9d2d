#include "tools/assets/Grass.h"

#include "tools/assets/Noise.h"
#include "tools/assets/TileMap.h"

#include <vector>

namespace Assets {
namespace {

constexpr int side = 1024;

/** Without what is coarser than `cells` on the tile, but for a share of it. */
TileMap withoutCoarse(const TileMap& map, int cells, float share) {
    TileMap coarse = map.halved();
    while (coarse.getSide() > cells) {
        coarse = coarse.halved();
    }
    return TileMap(map.getSide(),
                   [&](float u, float v) { return map.sample(u, v) - (1 - share) * coarse.sample(u, v); });
}

/** Tufts and the shade between them, about 0. */
TileMap tufts() {
    return TileMap(side, [](float u, float v) {
        const float bend = 0.006F * fractalNoise(u, v, 48, 2, 0.5F, 11);
        const float fine = fractalNoise(u + bend, v - bend, 80, 3, 0.8F, 21);
        const float grain = randomAt(static_cast<int>(u * side), static_cast<int>(v * side), 31) - 0.5F;
        return 0.5F * fine + 0.35F * fractalNoise(u, v, 16, 3, 0.75F, 41) + 0.35F * grain;
    });
}

/** Where the grass is drier, about 0. */
TileMap dryness() {
    return TileMap(side, [](float u, float v) { return fractalNoise(u, v, 6, 7, 0.72F, 61); });
}

} // namespace

Picture grassPicture() {
    constexpr int weakBelow = 16; // features of 5 m
    const TileMap light = withoutCoarse(tufts(), weakBelow, 0.35F);
    const TileMap dry = withoutCoarse(dryness(), weakBelow, 0.3F);
    return Picture::of(side, side, [&](int x, int y) {
        constexpr Color lush = bytes(74, 98, 44);
        constexpr Color common = bytes(101, 119, 60);
        constexpr Color straw = bytes(150, 147, 92);
        const float share = dry.at(x, y);
        const Color tint = share < 0 ? mix(common, lush, smoothStep(0, 1.1F, -share))
                                     : mix(common, straw, 0.75F * smoothStep(0, 1.6F, share));
        return tint * (1 + 0.3F * std::clamp(light.at(x, y), -1.2F, 1.2F));
    });
}

TriangleModel grassFloor() {
    constexpr float half = 200;
    TriangleModel floor;
    floor.addQuad({{{-half, -half, 0}, {half, -half, 0}, {half, half, 0}, {-half, half, 0}}});
    return floor;
}

} // namespace Assets
