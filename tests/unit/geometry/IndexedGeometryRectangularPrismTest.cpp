#include "vtl/geometry/IndexedGeometryRectangularPrism.h"

#include "tests/unit/geometry/BuiltShape.h"
#include "tests/unit/math/MathTesting.h"

#include <cmath>

namespace Vantrel {
namespace {

TEST(IndexedGeometryRectangularPrismTest, EnclosesItsVolumeWithFacesThatLookOutward) {
    const Vector lengths(2, 6, 10);
    const auto prism = Tests::built<IndexedGeometryRectangularPrism>({lengths, true, true});
    EXPECT_EQ(prism.numVertices, 24U);
    ASSERT_EQ(prism.indices.size(), 36U);
    EXPECT_EQ(prism.indexType, static_cast<GLenum>(GL_UNSIGNED_BYTE));
    float volume = 0;
    Vector area;
    for (std::size_t i = 0; i < prism.indices.size(); i += 3) {
        const Vector doubled = prism.doubledArea(i);
        volume += prism.vertex(prism.indices[i]).dotProduct(doubled) / 6;
        area += Vector(std::abs(doubled.x), std::abs(doubled.y), std::abs(doubled.z)) / 2;
        for (std::size_t corner = i; corner < i + 3; ++corner) {
            Tests::expectNear(prism.normal(prism.indices[corner]), doubled.normalizeMe(), 1e-6F);
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
