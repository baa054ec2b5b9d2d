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

/** Blades, tufts and the shade between them, about 0: strong where they are finer than a pixel from the air.
 */
TileMap tufts() {
    return TileMap(side, [](float u, float v) {
        const float bend = 0.004F * fractalNoise(u, v, 64, 2, 0.5F, 11);
        const float fine = fractalNoise(u + bend, v - bend, 112, 3, 0.95F, 21);
        const float grain = randomAt(static_cast<int>(u * side), static_cast<int>(v * side), 31) - 0.5F;
        return 0.52F * fine + 0.06F * fractalNoise(u, v, 14, 3, 0.9F, 41) + 0.4F * grain;
    });
}

/** Where the grass is drier, about 0. */
TileMap dryness() {
    return TileMap(side, [](float u, float v) {
        return 0.55F * fractalNoise(u, v, 5, 4, 0.5F, 61) + 0.45F * fractalNoise(u, v, 120, 3, 0.9F, 71);
    });
}

/** A place on the floor as one on the texture, bent so that its repeats stand in no straight rows. */
TexturePoint bent(float u, float v) {
    constexpr float repeats = 500;
    constexpr float most = 3.2F; // of them
    constexpr int bends = 11;
    return {u + most / repeats * noise(u * bends, v * bends, bends, bends, 81),
            v + most / repeats * noise(u * bends, v * bends, bends, bends, 91)};
}

} // namespace

Picture grassPicture() {
    constexpr int weakBelow = 16; // features of 5 m
    const TileMap light = withoutCoarse(tufts(), weakBelow, 0.5F);
    const TileMap dry = withoutCoarse(dryness(), weakBelow, 0.9F);
    return Picture::of(side, side, [&](int x, int y) {
        constexpr Color lush = bytes(80, 104, 50);
        constexpr Color common = bytes(108, 127, 66);
        constexpr Color straw = bytes(156, 152, 96);
        const float share = dry.at(x, y);
        const Color tint = share < 0 ? mix(common, lush, smoothStep(0, 1.1F, -share))
                                     : mix(common, straw, 0.75F * smoothStep(0, 1.6F, share));
        return tint * (1 + 0.3F * std::clamp(light.at(x, y), -1.2F, 1.2F));
    });
}

TriangleModel grassFloor() {
    constexpr std::uint32_t cells = 64;
    TriangleModel floor;
    for (std::uint32_t i = 0; i < (cells + 1) * (cells + 1); ++i) {
        const float u = static_cast<float>(i % (cells + 1)) / cells;
        const float v = static_cast<float>(i / (cells + 1)) / cells;
        const std::uint32_t vertex = floor.addVertex({(u - 0.5F) * 400, (v - 0.5F) * 400, 0}, bent(u, v));
        if (u > 0 && v > 0) {
            floor.addFace({vertex - cells - 2, vertex - cells - 1, vertex, vertex - 1});
        }
    }
    return floor;
}

} // namespace Assets
