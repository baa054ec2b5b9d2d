#include "vtl/math/GeometryIntersection.h"

#include "vtl/math/VantrelGeometryRayVsFace.h"

#include "tests/unit/math/MathTesting.h"

#include <algorithm>
#include <array>
#include <limits>
#include <ostream>

namespace Vantrel {

static void PrintTo(LineIntersection result, std::ostream* out) {
    *out << static_cast<int>(result);
}

namespace {

using Tests::expectNear;
using enum LineIntersection;

constexpr float nan = std::numeric_limits<float>::quiet_NaN();

TEST(VantrelGeometryRayVsFaceTest, TellsWhetherItHasTangents) {
    const VantrelGeometryRayVsFace bare(unitX, unitY, unitZ, unitX, 7, 8, 9);
    VantrelGeometryRayVsFace full(unitX, unitY, unitZ, unitX, unitX, unitY, unitZ, 7, 8, 9);
    EXPECT_FALSE(bare.hasVertexTangents);
    EXPECT_TRUE(full.hasVertexTangents && !full.hit);
    expectNear(full.tangent1, unitY, 0);
    EXPECT_EQ(full.index2, 9U);
    full = VantrelGeometryRayVsFace();
    EXPECT_FALSE(full.hasVertexTangents);
    EXPECT_EQ(full.index2, 0U);
}

/** The plane y = 2 by a normal that isn't one long, and a line given by its Y coordinates. */
struct LinePlaneRow {
    float startY;
    float endY;
    bool segmentOnly;
    LineIntersection expected;
    float expectedT;
};

TEST(IntersectLinePlaneTest, AnswersAndWritesByTheRow) {
    constexpr float untouched = 99;
    const VantrelGeometryPlane plane(0, 4, 0, 8);
    for (const LinePlaneRow& row : {LinePlaneRow{0, 4, true, crossing, 0.5F},
                                    {2, 4, true, crossing, 0},
                                    {0, 2, true, crossing, 1},
                                    {0, 1, true, none, untouched},
                                    {4, 3, true, none, untouched},
                                    {3, 4, true, none, untouched},
                                    {0, 1, false, crossing, 2},
                                    {3, 4, false, crossing, -1},
                                    {1, 1, true, parallel, untouched},
                                    {1, 1, false, parallel, untouched},
                                    {2, 2, true, inPlane, untouched},
                                    {2.00001F, 2.00002F, false, inPlane, untouched},
                                    {nan, 1, true, none, untouched},
                                    {1, nan, true, none, untouched}}) {
        Vector point(untouched, untouched, untouched);
        float t = untouched;
        const Vector start(0, row.startY, 5);
        const Vector end(8, row.endY, 5);
        const LineIntersection result = intersectLinePlane(start, end, plane, point, row.segmentOnly, &t);
        const bool isWritten = row.expected == crossing;
        SCOPED_TRACE(::testing::Message() << row.startY << " to " << row.endY << " " << row.segmentOnly);
        EXPECT_EQ(result, row.expected);
        EXPECT_FLOAT_EQ(t, row.expectedT);
        expectNear(point, isWritten ? Vector(8 * t, 2, 5) : Vector(untouched, untouched, untouched), 1e-5F);
        EXPECT_EQ(intersectLinePlane(start, end, plane, point, row.segmentOnly, nullptr), row.expected);
    }
}

/** The box of 2, 4, 6 about the origin. `untouched` is what an output was before. */
struct LineBoxRow {
    const char* name;
    Vector start;
    Vector end;
    LineIntersection expected;
    Vector first;
    Vector second;
    bool enters;
    bool leaves;
};

const Vector untouched(77, 77, 77);

TEST(IntersectLineAABBTest, AnswersAndWritesByTheRow) {
    const std::array rows = {
        LineBoxRow{"inside", {0, 1, 0}, {1, -2, 3}, inside, {0, 1, 0}, {1, -2, 3}, false, false},
        LineBoxRow{"out of it", {0, 1, 0}, {4, 1, 0}, crossing, {0, 1, 0}, {1, 1, 0}, true, true},
        LineBoxRow{"into it", {0, 1, -9}, {0, 1, 0}, crossing, {0, 1, -3}, {0, 1, 0}, true, true},
        LineBoxRow{"through it", {0, 9, 1}, {0, -9, 1}, crossing, {0, 2, 1}, {0, -2, 1}, true, true},
        LineBoxRow{"along a face", {1, 9, 1}, {1, -9, 1}, crossing, {1, 2, 1}, {1, -2, 1}, true, true},
        LineBoxRow{"at an edge", {2, 1, 0}, {0, 3, 0}, crossing, {1, 2, 0}, {1, 2, 0}, true, true},
        LineBoxRow{"short of it", {9, 0, 0}, {2, 0, 0}, none, untouched, untouched, false, false},
        LineBoxRow{"beside it", {2, 9, 0}, {2, -9, 0}, none, untouched, untouched, false, false},
        LineBoxRow{"nowhere", {nan, 0, 0}, {0, nan, 0}, none, untouched, untouched, false, false},
    };
    for (const LineBoxRow& row : rows) {
        SCOPED_TRACE(row.name);
        Vector first = untouched;
        Vector second = untouched;
        bool enters = true;
        bool leaves = true;
        EXPECT_EQ(intersectLineAABB(row.start, row.end, Vector(2, 4, 6), first, second, enters, leaves),
                  row.expected);
        expectNear(first, row.first, 1e-6F);
        expectNear(second, row.second, 1e-6F);
        EXPECT_EQ(enters, row.enters);
        EXPECT_EQ(leaves, row.leaves);
    }
}

/** The part of a segment between parallel planes, slab after slab, as parameters from 0 to 1. */
struct Clip {
    Clip(const Vector& from, const Vector& to, const Vector& lengths)
        : entries{0, crossing(from.x, to.x, lengths.x, -1), crossing(from.y, to.y, lengths.y, -1),
                  crossing(from.z, to.z, lengths.z, -1)}
        , exits{1, crossing(from.x, to.x, lengths.x, 1), crossing(from.y, to.y, lengths.y, 1),
                crossing(from.z, to.z, lengths.z, 1)} {
        std::sort(entries.begin(), entries.end());
        std::sort(exits.begin(), exits.end());
    }
    /** Where the segment enters a slab, for side -1, or leaves it, for side 1. */
    static double crossing(double from, double to, double length, double side) {
        return (std::copysign(length / 2, (to - from) * side) - from) / (to - from);
    }

    double low() const { return entries[3]; }
    double high() const { return exits[0]; }
    /** Too near to an edge, or with an end too near to the surface, for single precision to tell. */
    bool isDoubtful() const {
        constexpr double least = 1e-4;
        return entries[3] - entries[2] < least || exits[1] - exits[0] < least ||
               std::abs(high() - low()) < least;
    }

    std::array<double, 4> entries;
    std::array<double, 4> exits;
};

TEST(IntersectLineAABBTest, AgreesWithClippingInDoublePrecision) {
    Tests::RandomInput random;
    std::array<int, 8> answers{};
    for (int i = 0; i < 20'000; ++i) {
        const Vector lengths(random.real(0.5F, 8), random.real(0.5F, 8), random.real(0.5F, 8));
        const Vector start = Tests::randomVector(random, 4);
        const Vector end = Tests::randomVector(random, 4);
        const Clip expected(start, end, lengths);
        if (expected.isDoubtful()) {
            continue;
        }
        Vector first;
        Vector second;
        bool enters = false; // stays so for a start inside, as does the other for an end inside
        bool leaves = false;
        const auto result = intersectLineAABB(start, end, lengths, first, second, enters, leaves);
        ++answers[static_cast<std::size_t>(result)];
        ASSERT_EQ(result == none, expected.low() > expected.high()) << start.toString() << end.toString();
        if (result != none) {
            ASSERT_EQ(result == inside, expected.low() == 0 && expected.high() == 1);
            ASSERT_EQ(enters, expected.low() > 0);
            ASSERT_EQ(leaves, expected.high() < 1);
            expectNear(first, start + (end - start) * static_cast<float>(expected.low()), 1e-4F);
            expectNear(second, start + (end - start) * static_cast<float>(expected.high()), 1e-4F);
        }
    }
    EXPECT_TRUE(answers[0] > 500 && answers[6] > 500 && answers[7] > 500);
}

TEST(IsPointInAABBFaceTest, ComparesTheTwoOtherCoordinates) {
    const Vector half(1, 2, 3);
    for (std::size_t plane = 0; plane < 8; ++plane) {
        const std::size_t own = plane == 4 || plane == 5 ? 2 : plane % 2; // the axis that isn't compared
        for (std::size_t axis = 0; axis < 3; ++axis) {
            for (const float sign : {-1.0F, 1.0F}) {
                std::array<float, 3> point{1 * sign, 2 * sign, 3 * sign};
                EXPECT_EQ(isPointInAABBFace(Vector(point.data()), half, plane), plane < 6);
                point[axis] *= 1.001F;
                EXPECT_EQ(isPointInAABBFace(Vector(point.data()), half, plane), plane < 6 && axis == own);
            }
        }
    }
}

TEST(IsPointInTriangleTest, CountsEdgesAndCorners) {
    const Vector a(0, 0, 1);
    const Vector b(4, 0, 1);
    const Vector c(0, 4, 1);
    for (const Vector& p : {a, b, c, Vector(2, 0, 1), Vector(0, 1, 1), Vector(2, 2, 1), Vector(1, 1, 1)}) {
        EXPECT_TRUE(isPointInTriangle(p, a, b, c)) << p.toString();
        EXPECT_TRUE(isPointInTriangle(p, c, b, a)) << p.toString();
    }
    for (const Vector& p : {Vector(2, -0.01F, 1), Vector(-0.01F, 1, 1), Vector(2.01F, 2, 1), Vector(5, 0, 1),
                            Vector(-1, -1, 1), Vector(nan, 1, 1)}) {
        EXPECT_FALSE(isPointInTriangle(p, a, b, c)) << p.toString();
        EXPECT_FALSE(isPointInTriangle(p, c, b, a)) << p.toString();
    }
}

TEST(IsPointInTriangleTest, AgreesWithTheWeightsOfTheCorners) {
    Tests::RandomInput random;
    for (int i = 0; i < 10'000; ++i) {
        const Vector a = Tests::randomVector(random, 10);
        const Vector ab = Tests::randomDirection(random) * 5;
        const Vector ac = Tests::randomDirection(random) * 5;
        const float u = random.real(-1, 2);
        const float v = random.real(-1, 2);
        const float least = std::min({u, v, 1 - u - v});
        if (std::abs(least) > 0.01F && ab.crossProduct(ac).magnitude() > 1) {
            ASSERT_EQ(isPointInTriangle(a + ab * u + ac * v, a, a + ab, a + ac), least > 0) << u << " " << v;
        }
    }
}

} // namespace
} // namespace Vantrel
