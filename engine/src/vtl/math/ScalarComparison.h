#pragma once

#include <concepts>
#include <type_traits>

namespace Vantrel {

/** True when `a` and `b` are at most `epsilon` apart, that distance included; never for a NaN. */
template <std::floating_point T>
constexpr bool isNearlyEqual(T a, std::type_identity_t<T> b, std::type_identity_t<T> epsilon) {
    const T difference = a - b;
    return (difference < 0 ? -difference : difference) <= epsilon;
}

/** True when `a` is less than 0.0001 from zero, that distance excluded; never for a NaN. */
template <std::floating_point T>
constexpr bool isNearZero(T a) {
    return (a < 0 ? -a : a) < static_cast<T>(0.0001);
}

} // namespace Vantrel
