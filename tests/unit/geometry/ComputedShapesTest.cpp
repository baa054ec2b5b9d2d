#include "vtl/geometry/IndexedGeometryAxes.h"
#include "vtl/geometry/IndexedGeometryCylinder.h"
#include "vtl/geometry/IndexedGeometryDisc.h"
#include "vtl/geometry/IndexedGeometryLines.h"
#include "vtl/geometry/IndexedGeometryQuad.h"
#include "vtl/geometry/IndexedGeometrySphere.h"

#include "tests/unit/geometry/BuiltShape.h"
#include "tests/unit/math/MathTesting.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace Vantrel {
namespace {

using Tests::built;
using Tests::BuiltShape;
using Numbers = std::vector<std::uint32_t>;
using Bytes = std::vector<std::uint8_t>;
using Floats = std::vector<float>;

constexpr GLenum shorts = GL_UNSIGNED_SHORT;
constexpr GLenum ints = GL_UNSIGNED_INT;

TEST(ComputedShapesTest, ConsistOfWhatTheirNumbersSay) {
    struct Row {
        BuiltShape shape;
        std::uint32_t numVertices;
        std::size_t numIndices;
        GLenum indexType;
    };
    for (const Row& row : {
             Row{built<IndexedGeometrySphere>({2.0F, 40, 40, true, true}), 1600, 9354, ints},
             {built<IndexedGeometryCylinder>({1.0F, 1.0F, 4.0F, 5, 1, true, true}), 10, 30, ints},
             {built<IndexedGeometryDisc>({1.0F, 2.0F, 6, true, true}), 12, 36, shorts},
             {built<IndexedGeometryDisc>({1.0F, 2.0F, 32768, true, true}), 65536, 196608, shorts},
         }) {
        EXPECT_EQ(row.shape.numVertices, row.numVertices);
        EXPECT_EQ(row.shape.indices.size(), row.numIndices);
        EXPECT_EQ(row.shape.indexType, row.indexType);
    }
}

TEST(ComputedShapesTest, SphereHasItsPolesOnYAndAllNormalsOutward) {
    const BuiltShape sphere = built<IndexedGeometrySphere>({2.0F, 3, 5, true, true});
    Tests::expectNear(sphere.vertex(0), Vector(0, -2, 0), 1e-5F);
    Tests::expectNear(sphere.vertex(5), Vector(2, 0, 0), 1e-5F);
    Tests::expectNear(sphere.vertex(6), Vector(0, 0, 2), 1e-5F);
    Tests::expectNear(sphere.vertex(14), Vector(0, 2, 0), 1e-5F);
    for (std::size_t i = 0; i < sphere.numVertices; ++i) {
        Tests::expectNear(sphere.normal(i) * 2, sphere.vertex(i), 1e-5F);
    }
    EXPECT_EQ(sphere.textureCoords[12], -0.25F);
    EXPECT_EQ(sphere.textureCoords[13], 0.5F);
    EXPECT_EQ(Numbers(sphere.indices.begin(), sphere.indices.begin() + 6), (Numbers{5, 6, 1, 5, 1, 0}));
    EXPECT_EQ(Numbers(sphere.indices.end() - 6, sphere.indices.end()), (Numbers{13, 14, 9, 13, 9, 8}));
}

TEST(ComputedShapesTest, CylinderStandsOnItsMiddleAndClosesOnItsFirstSlice) {
    const BuiltShape cone = built<IndexedGeometryCylinder>({1.0F, 0.0F, 4.0F, 4, 2, true, true});
    for (std::size_t slice = 0; slice < 4; ++slice) {
        Tests::expectNear(cone.vertex(slice), Vector(0, 0, -2), 1e-5F);
        Tests::expectNear(cone.normal(slice), cone.normal(slice + 8), 0);
    }
    Tests::expectNear(cone.vertex(5), Vector(0, 0.5F, 0), 1e-5F);
    Tests::expectNear(cone.vertex(8), Vector(1, 0, 2), 1e-5F);
    Tests::expectNear(cone.normal(1), Vector(0, 1, 0), 1e-5F);
    EXPECT_EQ(Numbers(cone.indices.end() - 6, cone.indices.end()), (Numbers{7, 11, 4, 4, 11, 8}));
    EXPECT_EQ(Floats(cone.textureCoords.begin() + 8, cone.textureCoords.begin() + 12),
              (Floats{0, 0.5F, 0.25F, 0.5F}));
}

TEST(ComputedShapesTest, DiscWithoutAHoleHasAllInnerVerticesAtItsCentre) {
    const BuiltShape disc = built<IndexedGeometryDisc>({0.0F, 2.0F, 4, true, true});
    for (std::size_t i = 0; i < 8; i += 2) {
        Tests::expectNear(disc.normal(i), unitZ, 0);
        Tests::expectNear(disc.vertex(i + 1), Vector(), 0);
        EXPECT_NEAR(disc.textureCoords[2 * i], disc.vertex(i).x / 4 + 0.5F, 1e-6F);
        EXPECT_EQ(disc.textureCoords[2 * i + 2], 0.5F);
    }
    Tests::expectNear(disc.vertex(2), Vector(0, 2, 0), 1e-5F);
    EXPECT_EQ(Numbers(disc.indices.end() - 6, disc.indices.end()), (Numbers{6, 0, 7, 7, 1, 0}));
}

TEST(ComputedShapesTest, QuadLiesInThePlaneOfItsOrientation) {
    struct Row {
        std::uint8_t orientation;
        Floats vertices;
        Vector normal;
    };
    const Floats inXY{-2, -1, 0, -2, 1, 0, 2, 1, 0, 2, -1, 0};
    for (const Row& row : {Row{0, inXY, unitZ},
                           {1, {-2, 0, -1, -2, 0, 1, 2, 0, 1, 2, 0, -1}, unitY},
                           {2, {0, -2, -1, 0, -2, 1, 0, 2, 1, 0, 2, -1}, unitX},
                           {255, inXY, unitZ}}) {
        const auto quad =
            built<IndexedGeometryQuad>({row.orientation, 4.0F, 2.0F, Vector(0.5F, 2, -1), false, true, true});
        EXPECT_EQ(quad.vertices, row.vertices) << int{row.orientation};
        Tests::expectNear(quad.normal(3), row.normal, 0);
        EXPECT_EQ(quad.indices, (Numbers{2, 1, 0, 0, 3, 2}));
        EXPECT_EQ(Bytes(quad.colors.end() - 4, quad.colors.end()), (Bytes{127, 255, 0, 255}));
    }
}

TEST(ComputedShapesTest, QuadTakesAnotherSizeAndScales) {
    Tests::OpenShape<IndexedGeometryQuad> quad(0, 1.0F, 1.0F, Vector(), true, false, false);
    quad.textureScale = Vector(3, 1, 1);
    quad.build();
    EXPECT_EQ(quad.arrays().textureCoords, (Floats{-1, 0, -1, 1, 2, 1, 2, 0}));
    quad.scale = Vector(0.5F, 2, 1);
    quad.setSize(8, 6);
    quad.updateCorners();
    EXPECT_EQ(quad.getWidth(), 8);
    EXPECT_EQ(quad.getHeight(), 6);
    const auto corners = quad.getVertices();
    EXPECT_EQ(Floats(corners.begin(), corners.end()), (Floats{-2, -6, 0, -2, 6, 0, 2, 6, 0, 2, -6, 0}));
}

TEST(ComputedShapesTest, AxesRunFromTheOriginInTheirColors) {
    const BuiltShape axes = built(Tests::OpenShape<IndexedGeometryAxes>(Vector(1, 2, 3)));
    EXPECT_EQ(axes.vertices, (Floats{1, 0, 0, 0, 2, 0, 0, 0, 3, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(axes.indices, (Numbers{3, 0, 4, 1, 5, 2}));
    EXPECT_EQ(axes.indexType, shorts);
    EXPECT_EQ(Bytes(axes.colors.begin(), axes.colors.begin() + 12),
              (Bytes{255, 0, 0, 255, 0, 255, 0, 255, 0, 0, 255, 255}));
    EXPECT_TRUE(std::equal(axes.colors.begin(), axes.colors.begin() + 12, axes.colors.begin() + 12));
}

BuiltShape builtLines(std::size_t points, const std::vector<vtlColor4ub>* colors) {
    Tests::OpenShape<IndexedGeometryLines> lines;
    lines.build(std::vector<Vector>(points, Vector(1, 2, 3)), colors);
    return lines.arrays();
}

TEST(ComputedShapesTest, LinesHaveIndicesAsWideAsTheirNumberAsks) {
    for (const auto& [points, indexType] : {std::pair<std::size_t, GLenum>{0, GL_UNSIGNED_BYTE},
                                            {254, GL_UNSIGNED_BYTE},
                                            {255, shorts},
                                            {65534, shorts},
                                            {65535, ints},
                                            {70001, ints}}) {
        const BuiltShape lines = builtLines(points, nullptr);
        EXPECT_EQ(lines.indexType, indexType) << points;
        ASSERT_EQ(lines.indices.size(), points);
        EXPECT_EQ(points == 0 ? 0 : lines.indices.back() + 1, points);
    }
}

TEST(ComputedShapesTest, LinesWithoutEnoughColorsAreWhiteFromThere) {
    const std::vector<vtlColor4ub> colors{{1, 2, 3, 4}, {5, 6, 7, 8}};
    EXPECT_FALSE(builtLines(3, nullptr).useColors);
    EXPECT_EQ(builtLines(1, &colors).colors, (Bytes{1, 2, 3, 4}));
    EXPECT_EQ(builtLines(3, &colors).colors, (Bytes{1, 2, 3, 4, 5, 6, 7, 8, 255, 255, 255, 255}));
}

void expectSound(const BuiltShape& shape, bool isThere, std::uint32_t first, std::uint32_t second) {
    EXPECT_EQ(!shape.indices.empty(), isThere) << first << " " << second;
    EXPECT_LE(shape.numVertices, 1U << 22U);
    EXPECT_EQ(shape.normals.size(), shape.vertices.size());
    EXPECT_EQ(3 * shape.textureCoords.size(), 2 * shape.vertices.size());
    EXPECT_TRUE(std::all_of(shape.indices.begin(), shape.indices.end(),
                            [&](std::uint32_t index) { return index < shape.numVertices; }));
}

TEST(ComputedShapesTest, TooFewAndTooManyPartsAndStrangeSizesDrawNothingOrSomethingSound) {
    constexpr float none = std::numeric_limits<float>::quiet_NaN();
    const Numbers counts{0, 1, 2, 3, 65536, 0x55555555, 0xFFFFFFFF};
    for (const std::uint32_t first : counts) {
        for (const std::uint32_t second : counts) {
            const bool areFew =
                first <= 65536 && second <= 65536 && first * std::uint64_t{second} <= 65536 * 3;
            expectSound(built<IndexedGeometrySphere>({none, first, second, true, true}),
                        areFew && first > 1 && second > 1, first, second);
            expectSound(built<IndexedGeometryCylinder>({none, 0.0F, none, first, second, true, true}),
                        areFew && first > 0 && second > 0, first, second);
        }
        expectSound(built<IndexedGeometryDisc>({0.0F, 0.0F, first, true, true}), first > 0 && first < 4,
                    first, 0);
    }
}

} // namespace
} // namespace Vantrel
