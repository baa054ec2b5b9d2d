#include "vtl/math/VantrelQuaternion.h"

#include "tests/unit/math/MathTesting.h"

#include <array>
#include <cmath>
#include <limits>

namespace Vantrel {
namespace {

using Quaternion = VantrelQuaternion;
using Tests::expectNear;
using Tests::rotationAbout;

void expectNear(const Quaternion& actual, const Quaternion& expected, float tolerance) {
    EXPECT_NEAR(actual.w, expected.w, tolerance);
    EXPECT_NEAR(actual.x, expected.x, tolerance);
    EXPECT_NEAR(actual.y, expected.y, tolerance);
    EXPECT_NEAR(actual.z, expected.z, tolerance);
}

void expectRoundTrip(const Mat4& rotation, float tolerance) {
    Mat4 back(std::array<float, 16>{}.data());
    const Quaternion q(rotation);
    q.toMatrix(back);
    EXPECT_NEAR(q.magnitude(), 1, 1e-6F);
    expectNear(back, rotation, tolerance);
    Tests::expectRotation(back);
}

TEST(VantrelQuaternionTest, TurnsAgainstTheUsualSign) {
    const float root = std::sqrt(0.5F);
    expectNear(Quaternion(Mat4()), Quaternion(), 0);
    expectNear(Quaternion(rotationAbout(unitX, Tests::pi / 2)), {root, -root, 0, 0}, 1e-6F);
    expectNear(Quaternion(rotationAbout(unitY, Tests::pi / 2)), {root, 0, -root, 0}, 1e-6F);
    expectNear(Quaternion(rotationAbout(unitZ, Tests::pi / 2)), {root, 0, 0, -root}, 1e-6F);
}

TEST(VantrelQuaternionTest, HalfTurnsTakeTheLargestAxis) {
    const float root = std::sqrt(0.5F);
    constexpr float diagonalHalfTurn[] = {0, 1, 0, 0, 1, 0, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1};
    // Where one component stands out, every other choice of divisor loses digits.
    for (const Vector& direction : {Vector(1, .002F, .001F), Vector(.002F, 1, .001F), Vector(.001F, 1, .002F),
                                    Vector(.002F, .001F, 1)}) {
        const Vector axis = direction.normalizeMe();
        expectNear(Quaternion(rotationAbout(axis, Tests::pi)), {0, axis.x, axis.y, axis.z}, 1e-6F);
    }
    expectNear(Quaternion(Mat4(diagonalHalfTurn)), {0, root, root, 0}, 1e-6F);
    expectRoundTrip(Mat4(diagonalHalfTurn), 1e-6F);
}

TEST(VantrelQuaternionTest, MatricesSurviveTheRoundTrip) {
    Tests::RandomInput random;
    for (int i = 0; i < 1000; ++i) {
        const Vector axis = Tests::randomDirection(random);
        expectRoundTrip(rotationAbout(axis, random.real(-3, 3)), 1e-5F);
        // Around the half turn a tiny trace divides the rounding of the matrix.
        expectRoundTrip(rotationAbout(axis, Tests::pi + random.real(-0.002F, 0.002F)), 1e-3F);
        expectRoundTrip(rotationAbout(axis, Tests::pi), 1e-3F);
    }
}

TEST(VantrelQuaternionTest, SlerpTurnsAtAnEvenRate) {
    Tests::RandomInput random;
    for (int i = 0; i < 1000; ++i) {
        const Vector axis = Tests::randomDirection(random);
        const Mat4 start = rotationAbout(Tests::randomDirection(random), random.real(-3, 3));
        const float angle = random.real(-3, 3);
        const float t = random.real(0, 1);
        Mat4 between;
        Quaternion::slerp(Quaternion(start), Quaternion(rotationAbout(axis, angle) * start), t)
            .toMatrix(between);
        // As coarse as for the round trip, since either end may be close to a half turn.
        expectNear(between, rotationAbout(axis, t * angle) * start, 1e-3F);
    }
}

TEST(VantrelQuaternionTest, SlerpEndsAtItsNormalizedEnds) {
    const Quaternion a(3, 0, 4, 0);
    const Quaternion b(0, 0, -2, 0);
    expectNear(Quaternion::slerp(a, b, 0), {0.6F, 0, 0.8F, 0}, 1e-6F);
    expectNear(Quaternion::slerp(a, b, 1), {0, 0, 1, 0}, 1e-6F);
    expectNear(Quaternion::slerp(a, b.negated(), 1), {0, 0, 1, 0}, 1e-6F);
}

TEST(VantrelQuaternionTest, SlerpOfNearlyTheSameRotationStaysThere) {
    const Quaternion q = Quaternion(0.1F, -0.7F, 0.3F, 0.5F).normalized();
    const Quaternion beside = Quaternion(0.1001F, -0.7F, 0.3F, 0.5F).normalized();
    for (const float t : {0.0F, 0.25F, 0.5F, 1.0F}) {
        expectNear(Quaternion::slerp(q, q.negated(), t), q, 1e-6F);
        expectNear(Quaternion::slerp(q, beside, t), q, 2e-4F);
        EXPECT_NEAR(Quaternion::slerp(q, beside, t).magnitude(), 1, 1e-6F);
    }
}

} // namespace
} // namespace Vantrel
