#include "vtl/geometry/IndexedGeometryRectangularPrism.h"

#include "tests/unit/math/MathTesting.h"

#include <cmath>

namespace Vantrel {
namespace {

/** Shows the arrays. */
class OpenPrism : public IndexedGeometryRectangularPrism {
public:
    using IndexedGeometryRectangularPrism::IndexedGeometryRectangularPrism;

    Vector corner(std::size_t index) const { return Vector(&vertices.at(3 * cornerAt(index))); }
    Vector normal(std::size_t index) const { return Vector(&normals.at(3 * cornerAt(index))); }

    using IndexedGeometry::indexType;
    using IndexedGeometry::indices;
    using IndexedGeometry::normals;
    using IndexedGeometry::numIndices;
    using IndexedGeometry::numVertices;
    using IndexedGeometry::textureCoords;

private:
    std::size_t cornerAt(std::size_t index) const { return static_cast<std::size_t>(indices.at(index)); }
};

TEST(IndexedGeometryRectangularPrismTest, EnclosesItsVolumeWithFacesThatLookOutward) {
    const Vector lengths(2, 6, 10);
    OpenPrism prism(lengths, true, true);
    prism.build();
    EXPECT_EQ(prism.numVertices, 24U);
    ASSERT_EQ(prism.numIndices, 36U);
    EXPECT_EQ(prism.indexType, static_cast<GLenum>(GL_UNSIGNED_BYTE));
    float volume = 0;
    Vector area;
    for (std::size_t i = 0; i < prism.numIndices; i += 3) {
        const Vector a = prism.corner(i);
        const Vector doubled = (prism.corner(i + 1) - a).crossProduct(prism.corner(i + 2) - a);
        volume += a.dotProduct(doubled) / 6;
        area += Vector(std::abs(doubled.x), std::abs(doubled.y), std::abs(doubled.z)) / 2;
        for (std::size_t corner = i; corner < i + 3; ++corner) {
            Tests::expectNear(prism.normal(corner), doubled.normalizeMe(), 1e-6F);
        }
    }
    EXPECT_FLOAT_EQ(volume, 120);
    Tests::expectNear(area, Vector(120, 40, 24), 1e-4F);
    for (std::size_t i = 0; i < 48; ++i) {
        EXPECT_EQ(prism.textureCoords.at(i), (std::array<float, 8>{0, 0, 1, 0, 0, 1, 1, 1}.at(i % 8)));
    }
}

} // namespace
} // namespace Vantrel
