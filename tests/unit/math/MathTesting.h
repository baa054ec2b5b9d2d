#pragma once

#include "vtl/math/Mat4.h"
#include "vtl/math/MatrixBuilders.h"

#include "tests/support/RandomInput.h"

#include <gtest/gtest.h>
#include <numbers>

namespace Vantrel::Tests {

inline constexpr float pi = std::numbers::pi_v<float>;

inline Vector randomVector(RandomInput& random, float largest) {
    return {random.real(-largest, largest), random.real(-largest, largest), random.real(-largest, largest)};
}

inline Vector randomDirection(RandomInput& random) {
    for (;;) {
        const Vector v = randomVector(random, 1);
        if (v.magnitude() > 0.1F && v.magnitude() <= 1) {
            return v.normalizeMe();
        }
    }
}

inline Mat4 rotationAbout(const Vector& axis, float radians) {
    Mat4 m;
    rotateAboutAxis(axis, radians, m);
    return m;
}

inline Vector columnOf(const Mat4& m, std::size_t column) {
    return Vector(&m.m[4 * column]);
}

inline void expectNear(const Vector& actual, const Vector& expected, float tolerance) {
    EXPECT_LE(actual.distanceFrom(expected), tolerance)
        << actual.toString(6) << " instead of " << expected.toString(6);
}

inline void expectNear(const Mat4& actual, const Mat4& expected, float tolerance) {
    for (std::size_t i = 0; i < 16; ++i) {
        EXPECT_NEAR(actual[i], expected[i], tolerance) << "element " << i;
    }
}

/** A rotation: three columns of length one, at right angles, right-handed. */
inline void expectRotation(const Mat4& m) {
    Mat4 transposed;
    m.transpose(transposed);
    expectNear(m * transposed, Mat4(), 1e-5F);
    expectNear(columnOf(m, 0).crossProduct(columnOf(m, 1)), columnOf(m, 2), 1e-5F);
}

} // namespace Vantrel::Tests
