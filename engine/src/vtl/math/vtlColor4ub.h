#pragma once

#include <concepts>
#include <cstdint>

namespace Vantrel {

/** A colour of four bytes, red, green, blue and alpha, as vertex arrays hold it. */
class vtlColor4ub {
public:
    /** Opaque white. */
    constexpr vtlColor4ub() = default;
    /** From four bytes, which may come as integers of another type: each counts modulo 256. */
    constexpr vtlColor4ub(std::integral auto r_, std::integral auto g_, std::integral auto b_,
                          std::integral auto a_)
        : r(static_cast<std::uint8_t>(r_))
        , g(static_cast<std::uint8_t>(g_))
        , b(static_cast<std::uint8_t>(b_))
        , a(static_cast<std::uint8_t>(a_)) {}
    /**
     * From components of 0 to 1, each multiplied by 255 and truncated. What lies below 0 and NaN give 0, what
     * lies above 1 gives 255.
     */
    constexpr vtlColor4ub(float r_, float g_, float b_, float a_)
        : r(byteOf(r_)), g(byteOf(g_)), b(byteOf(b_)), a(byteOf(a_)) {}

    /**
     * Subtracts each component in 32-bit unsigned arithmetic and limits it to 255, so that one that would
     * fall below zero becomes 255. Returns a copy of the result.
     */
    vtlColor4ub operator-=(const vtlColor4ub& right);

    std::uint8_t r = 255;
    std::uint8_t g = 255;
    std::uint8_t b = 255;
    std::uint8_t a = 255;

private:
    static constexpr std::uint8_t byteOf(float component) {
        const float scaled = component * 255.0F;
        if (scaled >= 255.0F) {
            return 255;
        }
        return scaled > 0.0F ? static_cast<std::uint8_t>(scaled) : std::uint8_t{0};
    }
};

} // namespace Vantrel
