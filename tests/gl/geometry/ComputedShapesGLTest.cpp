#include "vtl/geometry/IndexedGeometryAxes.h"
#include "vtl/geometry/IndexedGeometryCylinder.h"
#include "vtl/geometry/IndexedGeometryDisc.h"
#include "vtl/geometry/IndexedGeometryLines.h"
#include "vtl/geometry/IndexedGeometryQuad.h"
#include "vtl/geometry/IndexedGeometryRectangularPrism.h"
#include "vtl/geometry/IndexedGeometrySphere.h"
#include "vtl/math/MatrixBuilders.h"

#include "tests/gl/geometry/GeometryGLFixture.h"
#include "tests/support/GLObjectCount.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace Vantrel {
namespace {

using Tests::black;
using Tests::Pixel;
using Tests::PixelPicture;

using Shape = std::unique_ptr<IndexedGeometry>;

struct ShapeRow {
    const char* name;
    Shape (*make)();
    /** How many pixels it covers, and by how many that may be wrong. */
    int pixels;
    int tolerance;
};

const std::vector<Vector> triangle{{-3, -3, 0}, {3, -3, 0}, {3, -3, 0}, {0, 0, 4}, {0, 0, 4}, {-3, -3, 0}};
const std::vector<vtlColor4ub> triangleColors{
    {255, 0, 0, 255}, {255, 0, 0, 255}, {0, 255, 0, 255}, {0, 0, 255, 255}, {99, 88, 77, 255}};

// Seen along the diagonal, with 100 pixels a square metre: what lies flat shows 0.577 of its area.
const std::vector<ShapeRow> shapeRows{
    {"axes", []() -> Shape { return IndexedGeometryAxes::New(4); }, 89, 4},
    {"quad in XY",
     []() -> Shape { return IndexedGeometryQuad::New(0, 6, 4, Vector(0.2F, 0.4F, 0.6F), true, true, true); },
     1386, 30},
    {"quad in YZ",
     []() -> Shape { return IndexedGeometryQuad::New(2, 6, 4, Vector(1, 1, 1), false, false, false); }, 1386,
     30},
    {"prism", []() -> Shape { return IndexedGeometryRectangularPrism::New(Vector(3, 4, 2), true, true); },
     1501, 30},
    {"sphere", []() -> Shape { return IndexedGeometrySphere::New(4, 40, 40, true, true); }, 5000, 50},
    {"cylinder", []() -> Shape { return IndexedGeometryCylinder::New(2, 2, 4, 40, 3, true, true); }, 2032,
     40},
    {"cone", []() -> Shape { return IndexedGeometryCylinder::New(0, 4, 1, 40, 3, true, true); }, 2902, 40},
    {"ring", []() -> Shape { return IndexedGeometryDisc::New(2, 4, 40, true, true); }, 2177, 40},
    {"lines", []() -> Shape { return IndexedGeometryLines::New(triangle, &triangleColors); }, 92, 6},
    {"white lines", []() -> Shape { return IndexedGeometryLines::New(triangle, nullptr); }, 92, 6},
    {"no sphere", []() -> Shape { return IndexedGeometrySphere::New(1, 1, 40, true, true); }, 0, 0},
    {"no disc", []() -> Shape { return IndexedGeometryDisc::New(0, 1, 0, true, true); }, 0, 0},
    {"no lines", []() -> Shape { return IndexedGeometryLines::New({}, &triangleColors); }, 0, 0},
    {"half a line", []() -> Shape { return IndexedGeometryLines::New({Vector()}, nullptr); }, 0, 0},
};

Mat4 diagonalView() {
    Mat4 projection;
    Mat4 view;
    buildOrthographic(-10, 10, -5, 5, 1, 100, projection);
    buildLookAt(Vector(20, 20, 20), Vector(), unitZ, view);
    return projection * view;
}

class ComputedShapesGLTest : public Tests::GeometryGLFixture {
protected:
    static int coveredPixels() {
        const PixelPicture shown = picture();
        return static_cast<int>(std::count_if(shown.pixels.begin(), shown.pixels.end(),
                                              [](const Pixel& pixel) { return pixel != black; }));
    }

    /** Each shape of the rows drawn in the present context. */
    static std::vector<PixelPicture> drawAll() {
        std::vector<PixelPicture> pictures;
        const Tests::GLObjectCount before = Tests::countGLObjects();
        for (const ShapeRow& row : shapeRows) {
            if (!ManagerOpenGLState::isVersion32OrGreater()) {
                glColor3ub(255, 255, 255); // which a colour array may change
            }
            draw(*row.make(), diagonalView());
            pictures.push_back(picture());
            EXPECT_NEAR(coveredPixels(), row.pixels, row.tolerance) << row.name;
        }
        EXPECT_EQ(Tests::countGLObjects(), before);
        return pictures;
    }
};

TEST_P(ComputedShapesGLTest, LookAsInTheFixedFunctions) {
    if (!GetParam().isShaderPath()) {
        GTEST_SKIP() << "these are the fixed functions";
    }
    const std::vector<PixelPicture> shown = drawAll();
    EXPECT_EQ(checkGLError(0), 0U);
    Tests::stopGL();
    Tests::startGL(Tests::fixedFunctionContext);
    const std::vector<PixelPicture> expected = drawAll();
    for (std::size_t i = 0; i < shown.size(); ++i) {
        EXPECT_LE(Tests::worstDifference(shown[i], expected[i]), 2) << shapeRows[i].name;
    }
}

TEST_P(ComputedShapesGLTest, LinesAreAsWideAsTheContextCan) {
    const auto lines = IndexedGeometryLines::New({{-1, 0, 0}, {1, 0, 0}}, nullptr);
    lines->lineWidth = 3;
    draw(*lines);
    const float widest = ManagerOpenGLState::getCapabilities().maxLineWidth;
    EXPECT_NEAR(coveredPixels(), 200 * std::min(3.0F, widest), 1);
    float width = 0;
    glGetFloatv(GL_LINE_WIDTH, &width);
    EXPECT_EQ(width, 1);
}

INSTANTIATE_TEST_SUITE_P(Contexts, ComputedShapesGLTest, Tests::everyGLContext(), Tests::nameOfGLContext);

} // namespace
} // namespace Vantrel
