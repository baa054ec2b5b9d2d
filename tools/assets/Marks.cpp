#include "tools/assets/Marks.h"

#include "tools/assets/Noise.h"
#include "tools/assets/Shapes.h"

#include <cmath>

namespace Assets {
namespace {

/** A bar of metal, lit from one side: 0 in the middle, -1 and 1 at its sides. */
Color metalAt(float place) {
    constexpr Color dark = bytes(44, 50, 60);
    constexpr Color light = bytes(118, 126, 136);
    return mix(dark, light, smoothStep(1.05F, 0.05F, std::abs(place + 0.25F)));
}

/** A cover as wide as the dipoles; without one the array would vanish from afar, thin on white as it is. */
float outsideCover(float x, float y) {
    const float half = mix(0.485F, 0.135F, (x + 0.97F) / 1.94F);
    return std::max(std::abs(y) - half, std::abs(x) - 0.97F);
}

Color coverAt(float x, float y) {
    constexpr Color grey = bytes(150, 158, 166);
    constexpr float rim = 0.03F;
    return grey * mix(1.0F, 0.62F, smoothStep(-rim, -rim / 3, outsideCover(x, y)));
}

} // namespace

Picture lightPulsePicture() {
    constexpr int width = 256;
    constexpr int height = 32;
    constexpr float front = 0.86F;
    return Picture::ofUnitSquare(width, height, [](float u, float) {
        const float tail = std::clamp((u - 0.06F) / (front - 0.06F), 0.0F, 1.0F);
        const float sharp = coverage(u - front, 3.0F / width);
        return Color{1, 1, 1, tail * tail * sharp};
    });
}

Picture dipoleArrayPicture() {
    constexpr int width = 1024;
    constexpr int height = 512;
    return Picture::of(width, height, [](int px, int py) {
        constexpr float pixel = 2.0F / width;
        constexpr float boomHalf = 0.036F;
        constexpr float armHalf = 0.026F;
        constexpr int dipoles = 7;
        constexpr float ratio = 0.82F; // of one dipole to the next longer one, and of their distances
        const float x = (static_cast<float>(px) + 0.5F) * pixel - 1;
        const float y = (static_cast<float>(py) + 0.5F) * pixel - 0.5F;
        Color color = mix({1, 1, 1}, coverAt(x, y), coverage(outsideCover(x, y), pixel));
        float armLength = 0.44F;
        float place = -0.82F;
        float step = 0.40F;
        for (int i = 0; i < dipoles; ++i, place += step, armLength *= ratio, step *= ratio) {
            const float outside = outsideBox(x - place, y, armHalf, armLength, armHalf);
            color = mix(color, metalAt((x - place) / armHalf), coverage(outside, pixel));
        }
        const float boom = outsideBox(x, y, 0.95F, boomHalf, boomHalf * 0.6F);
        color = mix(color, metalAt(y / boomHalf), coverage(boom, pixel));
        constexpr Color insulator = bytes(178, 74, 40);
        const float feed = outsideBox(x - 0.9F, y, 0.05F, 0.05F, 0.02F);
        return mix(color, insulator * (1 - 0.3F * smoothStep(0, 0.05F, std::abs(y + 0.01F))),
                   coverage(feed, pixel));
    });
}

Picture meshPicture() {
    constexpr int side = 128;
    constexpr int wires = 4;
    return Picture::of(side, side, [](int x, int y) {
        constexpr Color zinc = bytes(178, 184, 188);
        const auto fromWire = [](int pixel) {
            const float place = (static_cast<float>(pixel) + 0.5F) * wires / side;
            return std::abs(place - std::round(place)) - 0.08F;
        };
        const float outside = std::min(fromWire(x), fromWire(y));
        const float lit = 0.8F + 0.2F * smoothStep(0, -0.1F, outside);
        const Color color = zinc * lit;
        return Color{color.r, color.g, color.b,
                     mix(0.12F, 1.0F, coverage(outside, static_cast<float>(wires) / side))};
    });
}

} // namespace Assets
