#include "vtl/math/TriangleTree.h"

#include "tests/unit/math/MathTesting.h"

#include <algorithm>
#include <cmath>
#include <deque>
#include <limits>
#include <vector>

namespace Vantrel {
namespace {

using Tests::expectNear;
using Tests::randomVector;

constexpr float nan = std::numeric_limits<float>::quiet_NaN();
constexpr float infinity = std::numeric_limits<float>::infinity();
/** Enough triangles for a tree. */
constexpr int many = 100;

struct Mesh {
    void add(const Vector& a, const Vector& b, const Vector& c) {
        for (const Vector& corner : {a, b, c}) {
            indices.push_back(static_cast<std::uint32_t>(vertices.size()));
            vertices.push_back(&positions.emplace_back(corner));
        }
    }
    /** Across the X axis. */
    void addAt(float x) { add(Vector(x, -2, -2), Vector(x, 2, -2), Vector(x, 0, 2)); }
    Vector randomVertex(Tests::RandomInput& random) const {
        return positions[random.index(0, positions.size() - 1)];
    }

    std::deque<Vector> positions; // at places that stay
    std::vector<const Vector*> vertices;
    std::vector<std::uint32_t> indices;
};

/** What both find, which is to be the same in every bit. */
std::optional<TriangleHit> findAlike(const Mesh& mesh, const TriangleTree& tree, const Vector& start,
                                     const Vector& end, bool segmentOnly) {
    const auto expected = TriangleList(mesh.vertices, mesh.indices).findNearestHit(start, end, segmentOnly);
    const auto actual = tree.findNearestHit(start, end, segmentOnly);
    EXPECT_EQ(actual.has_value(), expected.has_value()) << start.toString(9) << end.toString(9);
    if (actual && expected) {
        EXPECT_EQ(actual->triangle, expected->triangle) << start.toString(9) << end.toString(9);
        EXPECT_EQ(actual->distanceSquared, expected->distanceSquared);
        expectNear(actual->point, expected->point, 0);
    }
    return actual;
}

TEST(TriangleTreeTest, FindsTheNearestHitByTheRow) {
    Mesh mesh;
    for (const float x : {3.0F, -1.0F, 3.0F, 5.0F}) {
        mesh.addAt(x);
    }
    for (int i = 0; i < many; ++i) {
        mesh.addAt(static_cast<float>(10 + i / 2));
    }
    struct Row {
        float start;
        float end;
        bool segmentOnly;
        int expected; ///< triangle, -1 for none
    };
    const TriangleTree tree(mesh.vertices, mesh.indices);
    for (const Row& row :
         {Row{0, 4, true, 0}, Row{0, 2, true, -1}, Row{0, 2, false, 1}, Row{4.5F, 6, true, 3},
          Row{1, 2, false, 0}, Row{4, 9, false, 0}, Row{99, 0, true, many + 2}, Row{12, 12.9F, true, 8},
          Row{12.1F, 12.9F, true, -1}, Row{13.1F, 9, true, 10}, Row{0, 0, false, -1}, Row{nan, 0, false, -1},
          Row{0, infinity, false, -1}, Row{-1e30F, 0, true, -1}}) {
        SCOPED_TRACE(::testing::Message() << row.start << " to " << row.end << " " << row.segmentOnly);
        const auto hit =
            findAlike(mesh, tree, Vector(row.start, 0, 0), Vector(row.end, 0, 0), row.segmentOnly);
        EXPECT_EQ(hit ? static_cast<int>(hit->triangle) : -1, row.expected);
        if (hit) {
            const float x = mesh.positions[std::size_t{3} * hit->triangle].x;
            expectNear(hit->point, Vector(x, 0, 0), 1e-5F);
            EXPECT_NEAR(hit->distanceSquared, (x - row.start) * (x - row.start), 1e-3F);
        }
    }
    // The parameter underflows: single precision has triangles hit that the line doesn't come near.
    EXPECT_TRUE(findAlike(mesh, tree, Vector(-5, 0, 0), Vector(1e38F, 3e38F, 0), false));
}

TEST(TriangleTreeTest, PassesOverWhatIsNoTriangle) {
    Mesh mesh;
    for (int i = 0; i < many; ++i) {
        mesh.addAt(static_cast<float>(i));
    }
    mesh.vertices[1] = nullptr;
    mesh.positions[5].y = nan;
    mesh.positions[6].z = infinity;
    mesh.positions[9] = mesh.positions[10];
    mesh.indices[12] = static_cast<std::uint32_t>(mesh.vertices.size());
    mesh.indices[16] = 0xFFFFFFFF;
    mesh.indices.pop_back();
    const TriangleTree tree(mesh.vertices, mesh.indices);
    for (const bool segmentOnly : {false, true}) {
        EXPECT_EQ(findAlike(mesh, tree, Vector(-1, 0, 0), Vector(1000, 0, 0), segmentOnly)->triangle, 6U);
        EXPECT_EQ(findAlike(mesh, tree, Vector(1000, 0, 0), Vector(-1, 0, 0), segmentOnly)->triangle,
                  many - 2U);
    }
    for (const std::size_t count : {0U, 2U, 3U}) {
        const TriangleTree small({}, std::span(mesh.indices).first(count));
        EXPECT_FALSE(small.findNearestHit(Vector(-1, 0, 0), Vector(9, 0, 0), false));
    }
}

TEST(TriangleTreeTest, OfManyEqualTrianglesTheFirstIsHit) {
    Mesh mesh;
    mesh.addAt(1);
    mesh.add(Vector(), Vector(), Vector()); // degenerate
    mesh.addAt(1);
    const std::vector<std::uint32_t> triple = mesh.indices;
    for (int i = 0; i < 100'000; ++i) {
        mesh.indices.insert(mesh.indices.end(), triple.rbegin(), triple.rend());
    }
    const TriangleTree tree(mesh.vertices, mesh.indices);
    EXPECT_EQ(findAlike(mesh, tree, Vector(0, 0, 0), Vector(2, 0, 0), true)->triangle, 0U);
    EXPECT_FALSE(findAlike(mesh, tree, Vector(0, 3, 0), Vector(2, 3, 0), true));
}

/** How the corners of random triangles lie to each other. */
struct Soup {
    float place;  ///< how far from the origin
    float spread; ///< how far from each other
    float length; ///< of edges
    float height; ///< as a part of that
};

Mesh meshOf(const Soup& soup, Tests::RandomInput& random) {
    Mesh mesh;
    const Vector place = randomVector(random, soup.place);
    for (int i = 0; i < 300; ++i) {
        const Vector a = place + randomVector(random, soup.spread);
        const Vector edge = randomVector(random, soup.length);
        mesh.add(a, a + edge, a + edge * random.real(0, 1) + randomVector(random, soup.length * soup.height));
    }
    return mesh;
}

/** A line at, along or by the edges and corners of a mesh, from nearby or from far away. */
void findAlikeAlongARandomLine(const Mesh& mesh, const TriangleTree& tree, Tests::RandomInput& random) {
    Vector target = mesh.randomVertex(random);
    target += (mesh.randomVertex(random) - target) * (random.index(0, 1) == 0 ? 0.0F : random.real(0, 1));
    Vector direction = Tests::randomDirection(random);
    switch (random.index(0, 3)) {
    case 0: // along an axis
        direction = Vector(random.index(0, 1) == 0 ? 1.0F : 0.0F, -1, 0);
        break;
    case 1: { // along the plane of a triangle, or an edge
        const std::size_t triangle = 3 * random.index(0, mesh.indices.size() / 3 - 1);
        const Vector corner = *mesh.vertices[mesh.indices[triangle]];
        const Vector edge = *mesh.vertices[mesh.indices[triangle + 1]] - corner;
        target = corner + edge * random.real(-0.1F, 1.1F);
        direction = edge.normalizeMe() + direction * std::exp2(random.real(-20, 0));
        break;
    }
    default:
        break;
    }
    const Vector start = target - direction * std::exp2(random.real(-2, 20));
    const Vector end = start + direction * std::exp2(random.real(-2, 20));
    findAlike(mesh, tree, start, end, random.index(0, 1) == 0);
}

TEST(TriangleTreeTest, AgreesWithTryingAllTriangles) {
    Tests::RandomInput random;
    for (const Soup& soup : {Soup{0, 10, 3, 1}, Soup{1e5F, 10, 3, 1}, Soup{1e6F, 0, 1, 1},
                             Soup{100, 10, 10, 1e-2F}, Soup{100, 1, 100, 3e-4F}, Soup{0, 5, 5, 1e-6F},
                             Soup{0, 5, 5, 0}, Soup{0, 1e-6F, 3e-6F, 1}, Soup{0, 1e11F, 1e11F, 1}}) {
        SCOPED_TRACE(::testing::Message() << soup.place << " " << soup.length << " " << soup.height);
        const Mesh mesh = meshOf(soup, random);
        const TriangleTree tree(mesh.vertices, mesh.indices);
        for (int i = 0; i < 1000; ++i) {
            findAlikeAlongARandomLine(mesh, tree, random);
        }
    }
}

TEST(TriangleTreeTest, AgreesOnAGridWhoseEdgesAreShared) {
    Tests::RandomInput random;
    constexpr std::uint32_t side = 20;
    Mesh mesh;
    for (std::uint32_t i = 0; i < side * side; ++i) {
        mesh.vertices.push_back(
            &mesh.positions.emplace_back(static_cast<float>(i % side), static_cast<float>(i / side), 0.0F));
    }
    for (std::uint32_t i = 0; i + side < side * side; ++i) {
        if (i % side != side - 1) {
            mesh.indices.insert(mesh.indices.end(), {i, i + 1, i + side, i + side, i + 1, i + side + 1});
        }
    }
    const TriangleTree tree(mesh.vertices, mesh.indices);
    for (int i = 0; i < 2000; ++i) {
        findAlikeAlongARandomLine(mesh, tree, random);
        const Vector corner = mesh.randomVertex(random);
        EXPECT_TRUE(findAlike(mesh, tree, corner + unitZ, corner - unitZ, true));
    }
}

TEST(HitBoxTest, HoldsEveryHitOfItsTriangle) {
    Tests::RandomInput random;
    for (int i = 0; i < 100'000; ++i) {
        const Vector a = randomVector(random, std::exp2(random.real(-3, 17)));
        const Vector edge = Tests::randomDirection(random) * 10;
        const Vector c =
            a + edge * random.real(0, 1) + Tests::randomDirection(random) * std::exp2(random.real(-8, 3));
        const std::array<Vector, 3> corners{a, a + edge, c};
        const std::array<const Vector*, 3> vertices{&corners[0], &corners[1], &corners[2]};
        const std::array<std::uint32_t, 3> indices{0, 1, 2};
        const Vector direction = edge * random.real(-1, 1) + randomVector(random, 0.1F);
        const Vector start = a - direction * std::exp2(random.real(0, 10));
        const auto hit = TriangleList(vertices, indices).findHit(0, start, start + direction, false);
        const auto box = HitBox::of(corners);
        if (hit && box) {
            const float growth =
                box->growth * std::max({std::abs(start.x), std::abs(start.y), std::abs(start.z)});
            const std::array<float, 3> at{hit->point.x, hit->point.y, hit->point.z};
            for (std::size_t axis = 0; axis < at.size(); ++axis) {
                ASSERT_GE(at[axis], box->low[axis] - growth);
                ASSERT_LE(at[axis], box->high[axis] + growth);
            }
        }
    }
}

} // namespace
} // namespace Vantrel
