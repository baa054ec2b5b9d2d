#pragma once

#include <algorithm>

namespace Assets {

constexpr float mix(float from, float to, float share) {
    return from + (to - from) * share;
}

/** From 0 to 1 as `x` goes from `low` to `high`, without an edge at either. */
constexpr float smoothStep(float low, float high, float x) {
    const float share = std::clamp((x - low) / (high - low), 0.0F, 1.0F);
    return share * share * (3.0F - 2.0F * share);
}

/** The largest whole number that is not above `x`. */
constexpr int wholeBelow(float x) {
    const int whole = static_cast<int>(x);
    return whole - (x < static_cast<float>(whole) ? 1 : 0);
}

} // namespace Assets
