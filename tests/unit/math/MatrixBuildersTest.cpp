#include "vtl/math/MatrixBuilders.h"

#include "tests/unit/math/MathTesting.h"

#include <array>
#include <cmath>

namespace Vantrel {
namespace {

using Tests::columnOf;
using Tests::expectNear;

/** The point as OpenGL sees it: the whole matrix applied, then the division by w. */
Vector project(const Mat4& m, const Vector& p) {
    const float w = m[3] * p.x + m[7] * p.y + m[11] * p.z + m[15];
    return (m * p + columnOf(m, 3)) / w;
}

TEST(MatrixBuildersTest, ProjectionsMapTheirVolumeToTheCube) {
    Mat4 orthographic;
    buildOrthographic(-2, 6, 1, 3, 0.5F, 20, orthographic);
    Mat4 perspective;
    buildPerspective(60, 2, 0.5F, 20, perspective);
    const float slope = std::tan(Tests::pi / 6);
    for (const float x : {-1.0F, 1.0F}) {
        for (const float y : {-1.0F, 1.0F}) {
            for (const float z : {-1.0F, 1.0F}) {
                const Vector corner(x, y, z);
                const float depth = z < 0 ? 0.5F : 20;
                expectNear(project(orthographic, {2 + 4 * x, 2 + y, -depth}), corner, 1e-5F);
                expectNear(project(perspective, {2 * slope * depth * x, slope * depth * y, -depth}), corner,
                           1e-5F);
            }
        }
    }
}

TEST(MatrixBuildersTest, LookAtOfKnownPoses) {
    struct Pose {
        Vector eye, center, up;
        std::array<float, 16> expected;
    };
    for (const Pose& pose : {
             Pose{{5, 0, 0}, {0, 0, 0}, {0, 0, 7}, {0, 0, 1, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, -5, 1}},
             Pose{{1, 2, 3}, {1, 2, 0}, {0, 1, 0}, {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, -1, -2, -3, 1}},
             Pose{{0, -1, 0},
                  {3, 3, 0},
                  {3, 4, 10},
                  {.8F, 0, -.6F, 0, -.6F, 0, -.8F, 0, 0, 1, 0, 0, -.6F, 0, -.8F, 1}},
             Pose{{0, 0, 4}, {0, 0, 0}, {0, 0, 1}, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, -4, 1}},
         }) {
        Mat4 view;
        buildLookAt(pose.eye, pose.center, pose.up, &view[0]);
        expectNear(view, Mat4(pose.expected.data()), 1e-6F);
    }
}

/** The turned vector, from its parts along and across the axis. */
Vector turned(const Vector& v, const Vector& axis, float radians) {
    const Vector along = axis * axis.dotProduct(v);
    return along + (v - along) * std::cos(radians) + axis.crossProduct(v) * std::sin(radians);
}

TEST(MatrixBuildersTest, TurnsEveryColumnAboutAnAxisOfTheParent) {
    Tests::RandomInput random;
    for (int i = 0; i < 1000; ++i) {
        Mat4 before = Tests::rotationAbout(Tests::randomDirection(random), random.real(-7, 7));
        before[12] = random.real(-5, 5);
        Mat4 after = before;
        const Vector axis = Tests::randomDirection(random);
        const float angle = random.real(-7, 7);
        rotateAboutAxis(axis, angle, &after[0]);
        for (std::size_t column = 0; column < 4; ++column) {
            expectNear(columnOf(after, column), turned(columnOf(before, column), axis, angle), 1e-5F);
        }
        after[12] = after[13] = after[14] = 0;
        Tests::expectRotation(after);
    }
}

} // namespace
} // namespace Vantrel
