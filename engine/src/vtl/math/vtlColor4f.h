#pragma once

#include "vtl/math/vtlColor4ub.h"

#include <cstdint>

namespace Vantrel {

/** A colour of four floats, red, green, blue and alpha, from 0 to 1; nothing is clamped. */
class vtlColor4f {
public:
    /** Opaque white. */
    constexpr vtlColor4f() = default;
    constexpr vtlColor4f(float r_, float g_, float b_, float a_) : r(r_), g(g_), b(b_), a(a_) {}
    /** From bytes, each divided by 255. Plain integers fit both constructors, and neither is chosen. */
    constexpr vtlColor4f(std::uint8_t r_, std::uint8_t g_, std::uint8_t b_, std::uint8_t a_)
        : r(fraction(r_)), g(fraction(g_)), b(fraction(b_)), a(fraction(a_)) {}
    constexpr explicit vtlColor4f(const vtlColor4ub& color)
        : vtlColor4f(color.r, color.g, color.b, color.a) {}

    /** r, g, b, a for 0 to 3. Another index is reported and costs a pause, and gives r. */
    float& operator[](int i);

    float r = 1.0F;
    float g = 1.0F;
    float b = 1.0F;
    float a = 1.0F;

private:
    static constexpr float fraction(std::uint8_t byte) { return static_cast<float>(byte) / 255.0F; }
};

} // namespace Vantrel
