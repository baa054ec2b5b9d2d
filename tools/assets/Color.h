#pragma once

#include "tools/assets/Numbers.h"

namespace Assets {

/** Red, green, blue and opacity, from 0 to 1. */
struct Color {
    float r = 0;
    float g = 0;
    float b = 0;
    float a = 1;
};

/** From 0 to 255, as painters name them. */
constexpr Color bytes(float r, float g, float b, float a = 255) {
    constexpr float most = 255;
    return {r / most, g / most, b / most, a / most};
}

constexpr Color mix(const Color& from, const Color& to, float share) {
    return {mix(from.r, to.r, share), mix(from.g, to.g, share), mix(from.b, to.b, share),
            mix(from.a, to.a, share)};
}

/** As bright as that; opacity stays. */
constexpr Color operator*(const Color& color, float brightness) {
    return {color.r * brightness, color.g * brightness, color.b * brightness, color.a};
}

/** Light and light; the opacity is the first one's. */
constexpr Color operator+(const Color& a, const Color& b) {
    return {a.r + b.r, a.g + b.g, a.b + b.b, a.a};
}

} // namespace Assets
