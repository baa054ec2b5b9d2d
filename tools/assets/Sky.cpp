#include "tools/assets/Sky.h"

#include "tools/assets/Clouds.h"
#include "tools/assets/Noise.h"

#include <algorithm>
#include <cmath>

namespace Assets {
namespace {

constexpr int side = 1024;
constexpr Color haze = bytes(208, 220, 230);

/** Where a point of a square lies, `across` and `up` from -1 to 1. */
Point onCube(int square, float across, float up) {
    switch (square) {
    case 0:
        return {across, 1, up};
    case 1:
        return {1, -across, up};
    case 2:
        return {-across, -1, up};
    case 3:
        return {-1, across, up};
    case 4:
        return {-up, across, -1};
    default:
        return {-up, -across, 1};
    }
}

Point toUnit(const Point& point) {
    return point * (1 / std::sqrt(point.x * point.x + point.y * point.y + point.z * point.z));
}

Color clearSky(float rise) {
    constexpr Color horizonBlue = bytes(150, 187, 222);
    constexpr Color blue = bytes(52, 104, 176);
    const Color above = mix(horizonBlue, blue, 1 - std::exp(-2.3F * rise));
    return mix(above, haze, std::exp(-9 * rise));
}

/** The sun's disc and the glare about it, by the sine of the angle from the zenith. */
Color sunlight(float away) {
    constexpr Color warm{1.0F, 0.97F, 0.9F};
    const float disc = 1 - smoothStep(0.011F, 0.017F, away);
    return warm * (1.2F * disc + 0.55F * std::exp(-away / 0.035F) + 0.22F * std::exp(-away / 0.16F));
}

Color skyAlong(const Point& direction, const Clouds& clouds) {
    const float rise = std::max(direction.z, 0.004F);
    const float away = std::sqrt(direction.x * direction.x + direction.y * direction.y);
    const CloudLight cloud = clouds.seenAlong({direction.x, direction.y, rise}, haze);
    const Color behind = (clearSky(rise) + sunlight(away)) * cloud.clear;
    return behind + cloud.added + sunlight(away) * (0.35F * (1 - cloud.clear));
}

/** Country that fades in the haze. The ground ends before it, the further below the horizon the higher one
 * is. */
Color landAlong(float fall) {
    constexpr Color meadow = bytes(92, 109, 57);
    return mix(haze, meadow, std::sqrt(smoothStep(0, 0.05F, fall)));
}

/** From 1 on the lower edge towards +Y to 0 a few pixels away from it. */
float nearLowerNorthEdge(const Point& direction) {
    constexpr float pixel = 2.0F / side;
    const float longest = std::max({std::abs(direction.x), std::abs(direction.y), std::abs(direction.z)});
    const float away = std::max(longest - direction.y, longest + direction.z) / longest;
    return 1 - smoothStep(pixel, 5 * pixel, away);
}

Color colorAlong(const Point& direction, const Clouds& clouds) {
    if (direction.z >= 0) {
        return skyAlong(direction, clouds);
    }
    // The square below ends there beside the one above, and a filter takes half of each.
    const float mirrored = nearLowerNorthEdge(direction);
    const Color land = landAlong(-direction.z);
    return mirrored > 0 ? mix(land, skyAlong({direction.x, direction.y, -direction.z}, clouds), mirrored)
                        : land;
}

constexpr int squares = 6;

} // namespace

Picture skyPicture() {
    constexpr float dither = 1.0F / 255;
    const Clouds clouds;
    return Picture::of(squares * side, side, [&](int x, int y) {
        const int square = x / side;
        const auto last = static_cast<float>(side - 1); // whose middle is on the edge of the square
        const float across = 2 * static_cast<float>(x % side) / last - 1;
        const float up = 2 * static_cast<float>(y) / last - 1;
        const float grain = (randomAt(x, y, 7) - 0.5F) * dither;
        return colorAlong(toUnit(onCube(square, across, up)), clouds) + Color{grain, grain, grain};
    });
}

} // namespace Assets
