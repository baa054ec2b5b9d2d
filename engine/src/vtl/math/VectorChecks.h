#pragma once

#include "vtl/math/Mat4.h"
#include "vtl/math/ScalarComparison.h"
#include "vtl/math/VectorT.h"

#include <algorithm>
#include <cmath>

namespace Vantrel {

/** Whether every component is a finite number. */
inline bool isFinite(const Vector& v) {
    return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}

/** Whether every element is a finite number. */
inline bool isFinite(const Mat4& matrix) {
    float sum = 0.0F; // of zeros, unless one isn't
    for (const float element : matrix.m) {
        sum += element * 0.0F;
    }
    return sum == 0.0F;
}

/** Whether `v`, which has been normalised, is one long: what is zero or not finite never is. */
inline bool isDirection(const Vector& v) {
    return isNearlyEqual(v.magnitudeSquared(), 1.0F, 0.01F);
}

/** The unit vector along `v`, or `spare` where `v` has no direction. */
inline Vector directionOr(const Vector& spare, const Vector& v) {
    const Vector direction = v.normalizeMe();
    return isDirection(direction) ? direction : spare;
}

/** The unit vector along a cross b; `spare` where they point the same or the opposite way. */
inline Vector acrossOr(const Vector& spare, const Vector& a, const Vector& b) {
    return directionOr(spare, a.normalizeMe().crossProduct(b.normalizeMe()));
}

} // namespace Vantrel
