#include "vtl/scene/light/LensFlareImages.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Vantrel {
namespace {

/** A bell of height 1 about 0. */
float bell(float distance, float width) {
    const float ratio = distance / width;
    return std::exp(-ratio * ratio);
}

/** From 1 at `from` to 0 at `to`, smooth at both. */
float fade(float r, float from, float to) {
    const float part = std::clamp((to - r) / (to - from), 0.0F, 1.0F);
    return part * part * (3 - 2 * part);
}

float glow(float r) {
    return 0.3F * fade(r, 0.3F, 1.0F) * (0.6F + 0.4F * r);
}

float ring(float r) {
    return 0.4F * bell(r - 0.8F, 0.09F) + 0.08F * fade(r, 0.7F, 0.9F);
}

/** Twelve rays, every second one shorter. */
float starburst(float x, float y, float r) {
    float sum = 0.25F * bell(r, 0.25F);
    for (int ray = 0; ray < 6; ++ray) {
        const float angle = static_cast<float>(ray) * std::numbers::pi_v<float> / 6;
        const float beside = x * std::sin(angle) - y * std::cos(angle);
        const float length = ray % 2 == 0 ? 1.0F : 0.6F;
        sum += 0.7F * bell(beside, 0.02F) * fade(r, 0.0F, length);
    }
    return sum;
}

float halo(float r) {
    return bell(r, 0.045F) + 0.5F * std::exp(-r / 0.12F) * fade(r, 0.0F, 1.0F) + 0.1F * fade(r, 0.0F, 1.0F);
}

/** `x` and `y` are from -1 to 1. */
float alphaAt(LensFlareImage image, float x, float y) {
    const float r = std::hypot(x, y);
    if (r >= 1.0F) {
        return 0.0F;
    }
    switch (image) {
    case LensFlareImage::glow:
        return glow(r);
    case LensFlareImage::ring:
        return ring(r);
    case LensFlareImage::starburst:
        return starburst(x, y, r);
    case LensFlareImage::halo:
        return halo(r);
    }
    return 0.0F;
}

} // namespace

std::vector<std::uint8_t> lensFlarePixels(LensFlareImage image, std::uint32_t side) {
    constexpr float full = 255.0F;
    const auto centered = [side](std::uint32_t place) {
        return (2 * static_cast<float>(place) + 1) / static_cast<float>(side) - 1;
    };
    std::vector<std::uint8_t> pixels;
    pixels.reserve(std::size_t{4} * side * side);
    for (std::uint32_t row = 0; row < side; ++row) {
        for (std::uint32_t column = 0; column < side; ++column) {
            const float alpha = std::clamp(alphaAt(image, centered(column), centered(row)), 0.0F, 1.0F);
            pixels.insert(pixels.end(),
                          {255, 255, 255, static_cast<std::uint8_t>(std::lround(alpha * full))});
        }
    }
    return pixels;
}

} // namespace Vantrel
