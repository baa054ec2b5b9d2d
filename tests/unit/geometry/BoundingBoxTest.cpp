#include "vtl/geometry/BoundingBox.h"

#include "tests/unit/math/MathTesting.h"

#include <array>
#include <limits>

namespace Vantrel {
namespace {

using Tests::expectNear;

constexpr float largest = std::numeric_limits<float>::max();
constexpr float nan = std::numeric_limits<float>::quiet_NaN();

/** Empty, and at the origin for whoever asks. */
void expectEmpty(const BoundingBox& box) {
    EXPECT_TRUE(box.isEmpty());
    EXPECT_EQ(box.getMin().y, largest);
    EXPECT_EQ(box.getMax().y, -largest);
    expectNear(box.getLxLyLz(), Vector(), 0);
    expectNear(box.getCenter(), Vector(), 0);
    std::array<Vector, 8> corners;
    corners.fill(unitX);
    box.getCorners(corners);
    for (const Vector& corner : corners) {
        expectNear(corner, Vector(), 0);
    }
}

TEST(BoundingBoxTest, IsEmptyUntilItHoldsAPoint) {
    BoundingBox box;
    expectEmpty(box);
    const Vector point(-1, 2, -3);
    box.addPoint(point);
    EXPECT_FALSE(box.isEmpty());
    expectNear(box.getMin(), point, 0);
    expectNear(box.getMax(), point, 0);
    box.reset();
    expectEmpty(box);
    box.addPoints(nullptr, 0);
    expectEmpty(box);
    box.addPoint(Vector(1, nan, 3));
    expectEmpty(box);
    box.addPoint(Vector(nan, largest, nan));
    EXPECT_FALSE(box.isEmpty());
}

TEST(BoundingBoxTest, IsWidenedByBoxesThatHoldSomething) {
    BoundingBox box;
    BoundingBox other;
    other.addPoint(Vector(1, nan, 3));
    box.addBox(other);
    expectEmpty(box);
    EXPECT_EQ(box.getMin().x, largest);
    other.setLxLyLz(Vector(2, 4, 6), Vector(10, 20, 30));
    box.addBox(other);
    box.addBox(BoundingBox());
    expectNear(box.getMin(), other.getMin(), 0);
    expectNear(box.getMax(), other.getMax(), 0);
    other.setLxLyLz(Vector(100, 2, 2), Vector(10, 0, 30));
    box.addBox(other);
    expectNear(box.getMin(), Vector(-40, -1, 27), 0);
    expectNear(box.getMax(), Vector(60, 22, 33), 0);
}

TEST(BoundingBoxTest, WidensEachAxisSeparately) {
    BoundingBox box;
    const std::array<float, 9> points{1, 5, 9, -2, 6, 7, 0, 4, 8};
    box.addPoints(points.data(), 3);
    box.addPoint(Vector(nan, 5, 20));
    expectNear(box.getMin(), Vector(-2, 4, 7), 0);
    expectNear(box.getMax(), Vector(1, 6, 20), 0);
    expectNear(box.getLxLyLz(), Vector(3, 2, 13), 0);
}

TEST(BoundingBoxTest, HasItsCornersInOrder) {
    BoundingBox box;
    box.setLxLyLz(Vector(2, 4, 6), Vector(10, 20, 30));
    expectNear(box.getMin(), Vector(9, 18, 27), 0);
    expectNear(box.getMax(), Vector(11, 22, 33), 0);
    expectNear(box.getCenter(), Vector(10, 20, 30), 0);
    const std::array<Vector, 8> expected{Vector(11, 22, 33), Vector(11, 22, 27), Vector(11, 18, 33),
                                         Vector(11, 18, 27), Vector(9, 22, 33),  Vector(9, 22, 27),
                                         Vector(9, 18, 33),  Vector(9, 18, 27)};
    std::array<Vector, 8> corners;
    box.getCorners(corners);
    for (std::size_t i = 0; i < expected.size(); ++i) {
        expectNear(corners[i], expected[i], 0);
    }
}

TEST(BoundingBoxTest, CopiesAreIndependent) {
    BoundingBox box;
    box.setLxLyLz(Vector(2, 2, 2), Vector());
    BoundingBox copy(box);
    copy.addPoint(Vector(9, 0, 0));
    expectNear(box.getMax(), Vector(1, 1, 1), 0);
    box = copy;
    box = *&box;
    expectNear(box.getMax(), Vector(9, 1, 1), 0);
}

} // namespace
} // namespace Vantrel
