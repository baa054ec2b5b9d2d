#include "vtl/geometry/VantrelGeometryFrustum.h"

#include "tests/support/KeyPresses.h"
#include "tests/support/ReportCapture.h"
#include "tests/unit/math/MathTesting.h"
#include "vtl/geometry/BoundingBox.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <limits>

namespace Vantrel {
namespace {

using Tests::expectNear;

/** 90 degrees high and twice as wide, from 1 to 100 along +X. */
VantrelGeometryFrustum wideFrustum(const Vector& position = Vector()) {
    return {2, 90, 1, 100, unitX, unitZ, position};
}

VantrelGeometryOBB cube(const Vector& center, float length) {
    return {center, Vector(length, length, length), unitX, unitY, unitZ};
}

TEST(VantrelGeometryFrustumTest, HasItsPlanesInOrder) {
    const VantrelGeometryFrustum frustum = wideFrustum(Vector(10, 0, 0));
    const std::array normals = {Vector(-1, 0, 1),  Vector(-1, 0, -1), Vector(-2, 1, 0),
                                Vector(-2, -1, 0), Vector(-1, 0, 0),  Vector(1, 0, 0)};
    for (std::uint32_t i = 0; i < normals.size(); ++i) {
        const Vector normal = normals[i].normalizeMe();
        expectNear(frustum.getPlaneNormal(i), normal, 1e-5F);
        // The side planes meet in the position; near and far lie 1 and 100 ahead of it.
        const Vector onPlane(i == 4 ? 11.0F : i == 5 ? 110.0F : 10.0F, 0, 0);
        EXPECT_NEAR(frustum.getPlaneCoef(i), normal.dotProduct(onPlane), 1e-3F) << i;
    }
}

TEST(VantrelGeometryFrustumTest, RefusesASeventhPlane) {
    const VantrelGeometryFrustum frustum = wideFrustum();
    const auto refuse = [](auto operation) {
        const Tests::KeyPresses keys;
        Reports::open([](std::string_view) {});
        Reports::flush();
        Tests::reportToErrorOutput();
        operation();
    };
    EXPECT_FLOAT_EQ(frustum.getPlaneCoef(5), 100);
    EXPECT_EXIT(refuse([&] { frustum.getPlaneCoef(6); }), ::testing::ExitedWithCode(255),
                "^ERROR: VantrelGeometryFrustum::getPlaneCoef\\( unsigned int i \\)\n"
                "User must pass value such that i is \\[0,5\\]. Invalid value was\n"
                "passed in of 6...\nPress ENTER to exit...\n$");
    EXPECT_EXIT(refuse([&] { frustum.getPlaneNormal(4294967295U); }), ::testing::ExitedWithCode(255),
                "^ERROR: VantrelGeometryFrustum::getPlaneNormal\\( unsigned int i \\)\n.*4294967295");
}

TEST(IntersectFrustumOBBTest, AnswersByTheRow) {
    struct Row {
        const char* name;
        VantrelGeometryOBB box;
        bool expected;
    };
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    constexpr float infinity = std::numeric_limits<float>::infinity();
    const Vector diagonal = Vector(1, 1, 0).normalizeMe();
    const Vector across = Vector(-1, 1, 0).normalizeMe();
    for (const Row& row : {
             Row{"straddling the near plane", cube({1, 0, 0}, 1), true},
             Row{"touching the near plane from outside", cube({0.5F, 0, 0}, 1), true},
             Row{"just before the near plane", cube({0.49F, 0, 0}, 1), false},
             Row{"touching the far plane from outside", cube({101, 0, 0}, 2), true},
             Row{"just behind the far plane", cube({101.1F, 0, 0}, 2), false},
             Row{"around it all", cube({}, 1000), true},
             Row{"above", cube({10, 0, 12.1F}, 2), false},
             Row{"to the left", cube({10, 23.1F, 0}, 2), false},
             Row{"to the right", cube({10, -23.1F, 0}, 2), false},
             Row{"outside no single plane but near a corner", cube({115, 0, 115}, 40), true},
             Row{"out of reach, with a hull in reach",
                 {{-3, 4, 0}, {0.1F, 12, 0.1F}, diagonal, across * -1, unitZ},
                 true},
             Row{"a point", cube({50, 0, 0}, 0), true},
             Row{"with sides turned inside out", cube({101, 0, 0}, -2), true},
             Row{"nowhere", cube({nan, nan, nan}, 1), false},
             Row{"empty", cube({}, -infinity), false},
         }) {
        EXPECT_EQ(intersectFrustumOBB(wideFrustum(), row.box), row.expected) << row.name;
    }
    // Planes without a direction let everything in.
    const VantrelGeometryFrustum flat(1, 60, 1, 100, unitX, unitX, Vector());
    EXPECT_TRUE(intersectFrustumOBB(flat, cube({30, 500, 0}, 1)));
    EXPECT_FALSE(intersectFrustumOBB(flat, cube({500, 0, 0}, 1)));
    // Planes have their direction however small the frustum is.
    const VantrelGeometryFrustum tiny(1, 60, 0.0001F, 0.001F, unitX, unitZ, Vector());
    EXPECT_TRUE(intersectFrustumOBB(tiny, cube({0.0005F, 0, 0}, 0.001F)));
    EXPECT_FALSE(intersectFrustumOBB(tiny, cube({0.0005F, 0.1F, 0}, 0.001F)));
}

/** A view that isn't aligned with anything, and the axes to find points in it. */
struct RandomView {
    explicit RandomView(Tests::RandomInput& random)
        : look(Tests::randomDirection(random))
        , right(look.crossProduct(Tests::randomDirection(random)).normalizeMe())
        , up(right.crossProduct(look))
        , position(Tests::randomVector(random, 50))
        , aspect(random.real(0.3F, 3))
        , fovy(random.real(5, 120))
        , nearPlane(random.real(0.05F, 5))
        , farPlane(nearPlane + random.real(1, 200)) {}

    VantrelGeometryFrustum frustum() const { return {aspect, fovy, nearPlane, farPlane, look, up, position}; }
    Vector point(float rightward, float upward, float ahead) const {
        const float half = ahead * std::tan(fovy * Tests::pi / 360);
        return position + look * ahead + up * (upward * half) + right * (rightward * half * aspect);
    }

    Vector look;
    Vector right;
    Vector up;
    Vector position;
    float aspect;
    float fovy;
    float nearPlane;
    float farPlane;
};

TEST(IntersectFrustumOBBTest, NeverLosesABoxWithAPointInside) {
    Tests::RandomInput random;
    for (int i = 0; i < 20'000; ++i) {
        const RandomView view(random);
        const Vector inView = view.point(random.real(-0.999F, 0.999F), random.real(-0.999F, 0.999F),
                                         random.real(view.nearPlane, view.farPlane));
        const Mat4 turn = Tests::rotationAbout(Tests::randomDirection(random), random.real(-3, 3));
        const Vector lengths(random.real(0.1F, 50), random.real(0.1F, 50), random.real(0.1F, 50));
        const Vector inBox(lengths.x * random.real(-0.5F, 0.5F), lengths.y * random.real(-0.5F, 0.5F),
                           lengths.z * random.real(-0.5F, 0.5F));
        const VantrelGeometryOBB box(inView - turn * inBox, lengths, turn * unitX, turn * unitY,
                                     turn * unitZ);
        ASSERT_TRUE(intersectFrustumOBB(view.frustum(), box)) << i;
    }
}

/** How far the hull's eight corners are outside of the plane that they are furthest outside of. */
float distanceOutside(const VantrelGeometryFrustum& frustum, const VantrelGeometryOBB& box) {
    BoundingBox hull;
    for (unsigned i = 0; i < 8; ++i) {
        hull.addPoint(box.center + box.axes[0] * ((i & 1U) != 0 ? box.halfExtents.x : -box.halfExtents.x) +
                      box.axes[1] * ((i & 2U) != 0 ? box.halfExtents.y : -box.halfExtents.y) +
                      box.axes[2] * ((i & 4U) != 0 ? box.halfExtents.z : -box.halfExtents.z));
    }
    std::array<Vector, 8> corners;
    hull.getCorners(corners);
    float worst = -std::numeric_limits<float>::infinity();
    for (std::uint32_t i = 0; i < 6; ++i) {
        float least = std::numeric_limits<float>::infinity();
        for (const Vector& corner : corners) {
            least = std::min(least, frustum.getPlaneNormal(i).dotProduct(corner) - frustum.getPlaneCoef(i));
        }
        worst = std::max(worst, least);
    }
    return worst;
}

TEST(IntersectFrustumOBBTest, AgreesWithAllCornersAgainstAllPlanes) {
    Tests::RandomInput random;
    std::array<int, 2> answers{};
    for (int i = 0; i < 5'000; ++i) {
        const RandomView view(random);
        const Mat4 turn = Tests::rotationAbout(Tests::randomDirection(random), random.real(-3, 3));
        const Vector lengths(random.real(0, 50), random.real(0, 50), random.real(0, 50));
        const VantrelGeometryOBB box(view.position + Tests::randomVector(random, 100), lengths, turn * unitX,
                                     turn * unitY, turn * unitZ);
        const float distance = distanceOutside(view.frustum(), box);
        if (std::abs(distance) > 0.01F) {
            ASSERT_EQ(intersectFrustumOBB(view.frustum(), box), distance < 0) << i << " " << distance;
            ++answers[distance < 0 ? 1 : 0];
        }
    }
    EXPECT_TRUE(answers[0] > 500 && answers[1] > 500);
}

} // namespace
} // namespace Vantrel
