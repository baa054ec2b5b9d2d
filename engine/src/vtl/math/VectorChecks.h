#pragma once

#include "vtl/math/ScalarComparison.h"
#include "vtl/math/VectorT.h"

#include <cmath>

namespace Vantrel {

/** Whether every component is a finite number. */
inline bool isFinite(const Vector& v) {
    return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}

/** Whether `v`, which has been normalised, is one long: what is zero or not finite never is. */
inline bool isDirection(const Vector& v) {
    return isNearlyEqual(v.magnitudeSquared(), 1.0F, 0.01F);
}

} // namespace Vantrel
