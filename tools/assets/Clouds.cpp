#include "tools/assets/Clouds.h"

#include "tools/assets/Noise.h"

#include <array>
#include <cmath>
#include <cstdint>

namespace Assets {
namespace {

constexpr float coverTile = 46; // km after which the pattern repeats
constexpr float puffTile = 1.9F;
constexpr float fineTile = 0.43F; // not a part of the others
constexpr float streakTile = 90;
constexpr float base = 1.4F;
constexpr float highest = 1.5F; // above the base
constexpr float streakHeight = 9;
constexpr float earthRadius = 2200; // smaller than it is, so that far clouds come down to the haze
constexpr float sight = 24;         // the way on which haze hides two thirds
constexpr float extinction = 22;

/** How far along a ray with that rise the curved layer at `height` is. */
float distanceTo(float height, float rise) {
    const float level = 1 - rise * rise;
    return 2 * height / (rise + std::sqrt(rise * rise + 2 * level * height / earthRadius));
}

/** Where a ray is after a way; its z counts from the base. */
Point placeAlong(const Point& direction, float distance) {
    const float level = 1 - direction.z * direction.z;
    const float height = distance * direction.z + distance * distance * level / (2 * earthRadius);
    return {direction.x * distance, direction.y * distance, height - base};
}

Color litBy(float sun, float height, float towardsSun) {
    constexpr Color sunColor{1.0F, 0.985F, 0.955F};
    constexpr Color skyLight{0.43F, 0.50F, 0.61F};
    constexpr Color groundLight{0.10F, 0.11F, 0.085F};
    const float up = std::clamp(height / (0.6F * highest), 0.0F, 1.0F);
    const float forward = 1 + 0.35F * towardsSun * towardsSun * towardsSun;
    return sunColor * (0.74F * forward * sun) + skyLight * (0.60F + 0.28F * up) + groundLight * (1 - up);
}

/** Combed ice clouds: u and v repeat after 1. */
float streakAt(float u, float v) {
    const float bend = 0.05F * fractalNoise(u, v, 3, 4, 0.5F, 401);
    float sum = 0.9F * noise((u + bend) * 4, (v + 2 * bend) * 4, 4, 4, 431);
    float weight = 0.55F;
    int cells = 3;
    for (std::uint32_t octave = 0; octave < 6; ++octave, weight *= 0.62F, cells *= 2) {
        const auto scale = static_cast<float>(cells);
        sum += weight * noise((u + bend) * scale, (v + bend) * 4 * scale, cells, 4 * cells, 451 + octave);
    }
    return sum;
}

} // namespace

Clouds::Clouds()
    : cover(512, [](float u, float v) { return fractalNoise(u, v, 13, 4, 0.45F, 105); })
    , puffs(200)
    , streaks(1024, streakAt) {
}

float Clouds::depthAt(const Point& place, float distance) const {
    constexpr float rarity = 0.14F;
    constexpr float clearing = 1.1F; // no cloud hides the sun
    const float wide = cover.sample(place.x / coverTile, place.y / coverTile) - rarity;
    const float fromZenith = std::sqrt(place.x * place.x + place.y * place.y);
    const float heap = wide - 0.5F * (1 - smoothStep(0.3F * clearing, clearing, fromZenith));
    const float smooth = (heap > 0 ? 1.35F * std::sqrt(heap) : 2 * heap) - place.z;
    if (smooth < -0.6F) {
        return smooth;
    }
    const float puff = puffs.sample(place * (1 / puffTile)) - 0.42F;
    const float fineShare = 0.3F * (1 - smoothStep(2.5F, 9, distance)); // finer than the picture beyond
    const float fine = fineShare > 0 ? puffs.sample(place * (1 / fineTile)) - 0.45F : 0;
    const float rounded = smooth + 1.15F * puff + fineShare * fine;
    return std::min(rounded, 4 * (place.z + 0.03F + 0.1F * puff)); // the base
}

float Clouds::sunAt(const Point& place, float depth) const {
    struct Piece {
        float height;
        float length;
    };
    constexpr std::array<Piece, 3> pieces{{{0.06F, 0.12F}, {0.22F, 0.2F}, {0.55F, 0.45F}}};
    constexpr float coarse = 100;
    float cloud = 0;
    for (const Piece& piece : pieces) {
        const float above = depthAt(place + Point{0, 0, piece.height}, coarse);
        cloud += piece.length * smoothStep(0, 0.25F, above);
    }
    // Light is scattered more than once: some gets deeper than straight through.
    return 0.56F * std::exp(-7.0F * cloud) + 0.44F * std::exp(-1.4F * cloud - 0.35F * std::max(depth, 0.0F));
}

float Clouds::surfaceBetween(const Point& direction, float outside, float inside) const {
    for (int i = 0; i < 5; ++i) {
        const float middle = (outside + inside) / 2;
        (depthAt(placeAlong(direction, middle), middle) > 0 ? inside : outside) = middle;
    }
    return inside;
}

CloudLight Clouds::layerAlong(const Point& direction, const Color& haze) const {
    const float end = std::min(distanceTo(base + highest, direction.z), 2.8F * sight);
    float distance = distanceTo(base - 0.1F, direction.z);
    float outside = distance;
    CloudLight light{{0, 0, 0}, 1};
    while (distance < end && light.clear > 0.02F) {
        Point place = placeAlong(direction, distance);
        float depth = depthAt(place, distance);
        const float step = 0.022F + 0.004F * distance;
        if (depth <= 0) {
            outside = distance;
            distance += std::max(step, -0.4F * depth);
            continue;
        }
        if (outside > 0) {
            distance = surfaceBetween(direction, outside, distance) + step / 2;
            outside = 0;
            place = placeAlong(direction, distance);
            depth = depthAt(place, distance);
        }
        const float through = std::exp(-extinction * smoothStep(0, 0.2F, depth) * step);
        const Color lit = litBy(sunAt(place, depth), place.z, direction.z);
        const Color seen = mix(haze, lit, std::exp(-distance / sight));
        light.added = light.added + seen * ((1 - through) * light.clear);
        light.clear *= through;
        distance += step;
    }
    return light;
}

float Clouds::thinCloudsAlong(const Point& direction) const {
    const float distance = distanceTo(streakHeight, direction.z);
    const float streak = streaks.sample(0.31F + direction.x * distance / streakTile,
                                        0.42F + direction.y * distance / streakTile);
    return 0.4F * smoothStep(0.05F, 1.0F, streak) * smoothStep(0.02F, 0.3F, direction.z);
}

CloudLight Clouds::seenAlong(const Point& direction, const Color& haze) const {
    constexpr Color white{0.97F, 0.98F, 1.0F};
    CloudLight light = layerAlong(direction, haze);
    const float thin = thinCloudsAlong(direction);
    light.added = light.added + white * (thin * light.clear);
    light.clear *= 1 - thin;
    return light;
}

} // namespace Assets
