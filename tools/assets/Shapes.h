#pragma once

#include "tools/assets/Numbers.h"

#include <cmath>

namespace Assets {

/** How far (x, y) is outside of a rectangle with rounded corners about the origin; below 0 inside. */
inline float outsideBox(float x, float y, float halfWidth, float halfHeight, float radius = 0) {
    const float across = std::abs(x) - halfWidth + radius;
    const float up = std::abs(y) - halfHeight + radius;
    return std::hypot(std::max(across, 0.0F), std::max(up, 0.0F)) + std::min(std::max(across, up), 0.0F) -
           radius;
}

/** How much of a pixel of that size a shape covers which is `outside` away from its middle. */
constexpr float coverage(float outside, float pixel) {
    return std::clamp(0.5F - outside / pixel, 0.0F, 1.0F);
}

} // namespace Assets
