#include "vtl/geometry/IndexedGeometry.h"
#include "vtl/scene/light/WOSkyBox.h"
#include "vtl/scene/model/ModelDataShared.h"
#include "vtl/scene/shape/MGLGridLinesRegular2D.h"
#include "vtl/scene/shape/MGLPrimitiveShape.h"
#include "vtl/scene/shape/WOAxes.h"
#include "vtl/scene/shape/WOGrid.h"
#include "vtl/scene/shape/WOGridLinesRegular2D.h"
#include "vtl/scene/shape/WOPrimitiveShape.h"

#include "tests/support/KeyPresses.h"
#include "tests/support/ReportCapture.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace Vantrel {
namespace {

using Rows = MGLGrid::PointRows;
using ColorRows = MGLGrid::ColorRows;

constexpr float inf = std::numeric_limits<float>::infinity();
constexpr float nan = std::numeric_limits<float>::quiet_NaN();
const VectorD plain(1, 1, 1);
/** Three points wide, two rows, the first at the origin. */
const Rows ramp{{{0, 0, 0}, {2, 0, 1}, {4, 0, 0}}, {{0, 3, 0}, {2, 3, 1}, {4, 3, 0}}};

class ShapesTest : public ::testing::Test {
protected:
    static ModelMesh& meshOf(const WO& grid) {
        return grid.getModel()->getModelDataShared()->getMeshes().at(0);
    }
    static ModelMeshRenderDataGenerator& listsOf(const WO& grid) {
        return meshOf(grid).getModelMeshDataShared()->getGenerator();
    }
    static std::uint32_t colorOf(const vtlColor4ub& color) {
        return std::uint32_t{color.r} << 24U | std::uint32_t{color.g} << 16U | std::uint32_t{color.b} << 8U |
               color.a;
    }

    Tests::ReportCapture reports;
    Tests::KeyPresses keys;
};

TEST_F(ShapesTest, AGridIsTwoTrianglesForEachField) {
    const vtlColor4ub green(0, 255, 0, 128);
    const auto grid = WOGrid::New(ramp, VectorD(1, 2, 10), nullptr, &green, 3);
    const ModelMeshRenderDataGenerator& lists = listsOf(*grid);
    EXPECT_EQ(lists.indices, (std::vector<std::uint32_t>{3, 1, 0, 1, 3, 4, 4, 2, 1, 2, 4, 5}));
    EXPECT_EQ(lists.vertices.at(1), Vector(2, 0, 10));
    EXPECT_EQ(lists.vertices.at(5), Vector(4, 6, 0));
    const std::vector<Vector>& coords = lists.textureCoordSets.at(0).coords;
    EXPECT_EQ(coords.at(0), Vector(0, 1, 0));
    EXPECT_EQ(coords.at(4), Vector(0.5F, 0, 0));
    EXPECT_EQ(colorOf(lists.colors.at(5)), 0x00FF0080U);
    EXPECT_EQ(grid->getModel()->getBoundingBox().getMax(), Vector(4, 6, 10));
    EXPECT_TRUE(reports.contains("Making VBO\n"));
    EXPECT_FALSE(reports.contains("Colors are used."));
}

TEST_F(ShapesTest, SkinOperationsOfAGridReachItsMesh) {
    const auto grid = WOGrid::New(ramp, plain);
    Model& model = *grid->getModel();
    EXPECT_EQ(model.getSkin().shadingType, MESH_SHADING_TYPE::mstSMOOTH);
    dynamic_cast<MGL&>(model).addSkin(ModelMeshSkin());
    model.useNextSkin();
    EXPECT_EQ(&meshOf(*grid).getSkin(), &model.getSkins().at(1));
    EXPECT_EQ(model.getSkin().shadingType, MESH_SHADING_TYPE::mstSMOOTH)
        << "as the first, or it can't be drawn";
}

TEST_F(ShapesTest, ColorsOfPointsGoBeforeTheColorOfAll) {
    const vtlColor4ub green(0, 255, 0, 255);
    const ColorRows colors{{{1, 2, 3, 4}}, {{5, 6, 7, 8}, {5, 6, 7, 9}, {5, 6, 7, 10}, {9, 9, 9, 9}}, {{}}};
    const auto grid = WOGrid::New(ramp, plain, &colors, &green);
    std::vector<std::uint32_t> shown;
    for (const vtlColor4ub& color : listsOf(*grid).colors) {
        shown.push_back(colorOf(color));
    }
    EXPECT_EQ(shown, (std::vector<std::uint32_t>{0x01020304, 0xFFFFFFFF, 0xFFFFFFFF, 0x05060708, 0x05060709,
                                                 0x0506070A}));
    EXPECT_EQ(reports.count("Colors are used.\n"), 1U);
}

TEST_F(ShapesTest, AGridIsWhereItsPointsAre) {
    struct Row {
        Rows points;
        std::vector<std::uint32_t> indices;
    };
    const VectorD o;
    Rows mostlyMissing(10000);
    mostlyMissing[0].resize(10000);
    mostlyMissing[1].resize(2);
    for (const Row& row :
         {Row{{}, {}}, Row{{{}}, {}}, Row{{{}, {o}}, {}}, Row{{{o, o, o}}, {}}, Row{{{o}, {o}, {o}}, {}},
          Row{{{o, o, o}, {o}}, {3, 1, 0}}, Row{{{o, o}, {}, {o, o}}, {}},
          Row{{{o, o}, {o, o, o}}, {2, 1, 0, 1, 2, 3}}, Row{mostlyMissing, {}}}) {
        const auto grid = WOGrid::New(row.points, plain);
        EXPECT_EQ(listsOf(*grid).indices, row.indices);
        EXPECT_LE(listsOf(*grid).vertices.size(), 6U);
    }
    const auto ragged = WOGrid::New({{{1, 1, 0}, {2, 1, 0}}, {{1, 2, 0}}}, plain);
    EXPECT_EQ(ragged->getModel()->getBoundingBox().getMin(), Vector(1, 1, 0)) << "no point, no box";
    const auto folded = WOGrid::New({{o, o}, {o, {1, 1, 1}}}, plain);
    for (const Vector& coord : listsOf(*folded).textureCoordSets[0].coords) {
        EXPECT_EQ(coord, Vector()) << "A and B are at the origin";
    }
    WOGrid::New({{{nan, 0, 0}, {1e300, 0, 0}}, {{0, -inf, 0}, {1, 1, 1}}}, VectorD(nan, 1e300, 1));
}

TEST_F(ShapesTest, TheWorldGridHasItsLines) {
    const auto object =
        WOGridLinesRegular2D::New(30480, 304.8F, 30480, 304.8F, vtlColor4ub(127, 127, 127, 255));
    const auto& grid = dynamic_cast<const MGLGridLinesRegular2D&>(*object->getModel());
    EXPECT_EQ(grid.getGridWidth(), 101U);
    EXPECT_EQ(grid.getGridHeight(), 101U);
    const ModelMeshRenderDataGenerator& lists = listsOf(*object);
    ASSERT_EQ(lists.vertices.size(), 10201U);
    ASSERT_EQ(lists.indices.size(), 40400U);
    EXPECT_EQ(lists.vertices[101 * 2 + 3], Vector(304.8F * 2, 304.8F * 3, 0));
    EXPECT_EQ(std::vector(lists.indices.begin(), lists.indices.begin() + 4),
              (std::vector<std::uint32_t>{0, 101, 1, 102}));
    EXPECT_EQ(lists.indices[20201], 1U) << "then along Y";
    EXPECT_EQ(lists.indices.back(), 10200U);
    EXPECT_EQ(colorOf(lists.colors.back()), 0x7F7F7FFFU);
    ModelMeshDataShared& mesh = *meshOf(*object).getModelMeshDataShared();
    EXPECT_EQ(mesh.getRenderData(MESH_SHADING_TYPE::mstNONE, GL_LINES)->indexType, GLenum{GL_UNSIGNED_SHORT});
}

TEST_F(ShapesTest, LinesStandOnWholeStepsAlone) {
    struct Row {
        float lengthX, stepX, lengthY, stepY;
        std::uint32_t width, height;
    };
    for (const Row& row :
         {Row{10, 4, 10, 5, 3, 3}, Row{3.9F, 4, 0, 1, 1, 1}, Row{-1, 1, 5, 1, 0, 0}, Row{5, 0, 5, 1, 0, 0},
          Row{5, -1, 5, 1, 0, 0}, Row{nan, 1, 5, 1, 0, 0}, Row{5, 1, 5, nan, 0, 0}, Row{inf, 1, 5, 1, 0, 0},
          Row{5, inf, 5, 1, 1, 6}, Row{inf, inf, 5, 1, 0, 0}, Row{1e30F, 1e-30F, 5, 1, 0, 0},
          Row{1e5F, 1, 1e5F, 1, 0, 0}, Row{5, 1, 3e9F, 1, 0, 0}, Row{-0.5F, 1, 5, 1, 0, 0},
          Row{-10, -1, 5, 1, 11, 6}}) {
        const auto grid = MGLGridLinesRegular2D::New(nullptr, row.lengthX, row.stepX, row.lengthY, row.stepY,
                                                     vtlColor4ub());
        EXPECT_EQ(grid->getGridWidth(), row.width) << row.lengthX << " " << row.stepX;
        EXPECT_EQ(grid->getGridHeight(), row.height) << row.lengthY << " " << row.stepY;
    }
}

TEST_F(ShapesTest, WidthsOfLinesAreForwarded) {
    const auto grid = WOGridLinesRegular2D::New(2, 1, 2, 1, vtlColor4ub());
    grid->setGlLineWidth(3);
    EXPECT_EQ(grid->getGlLineWidth(), 3.0F);
    const auto axes = WOAxes::New(Vector(1, 1, 1), 2);
    axes->setLineWidth(axes->getLineWidth() + 2);
    EXPECT_EQ(axes->getLineWidth(), 4.0F);
    EXPECT_EQ(WOAxes().getLineWidth(), 0.0F);
    WOGridLinesRegular2D empty;
    reports.clear();
    empty.setGlLineWidth(2);
    EXPECT_EQ(empty.getGlLineWidth(), 0.0F);
    EXPECT_EQ(reports.text(),
              "WOGridLinesRegular2D::setGlLineWidth: this->model is NULL, cannot set line width...\n"
              "WOGridLinesRegular2D::setGlLineWidth: this->model is NULL, cannot get line width... "
              "Returning 0\n");
}

TEST_F(ShapesTest, ParametersOfAPrimitiveShapeAreItsScale) {
    struct Row {
        PRIMITIVE_SHAPE_TYPE type;
        std::vector<float> parameters;
        Vector scale;
        std::size_t vertices;
    };
    using enum PRIMITIVE_SHAPE_TYPE;
    constexpr auto unknown = static_cast<PRIMITIVE_SHAPE_TYPE>(77);
    for (const Row& row :
         {Row{psCUBE, {5}, Vector(5, 5, 5), 24}, Row{psCYLINDER, {2, 3, 9}, Vector(2, 2, 3), 110},
          Row{psCYLINDER, {}, Vector(1, 1, 1), 110}, Row{psSPHERE, {4}, Vector(4, 4, 4), 1600},
          Row{psBOX, {1, 2}, Vector(1, 2, 1), 24}, Row{unknown, {1, 2, 3}, Vector(1, 2, 3), 24}}) {
        const auto shape = MGLPrimitiveShape::New(nullptr, row.type, row.parameters);
        EXPECT_EQ(shape->getScale(), row.scale);
        EXPECT_EQ(shape->getGeometry().getVertices().size(), 3 * row.vertices);
        EXPECT_NEAR(shape->getBoundingBox().getMax().z, row.vertices == 1600 ? 1 : 0.5, 0.01);
        shape->setColor(vtlColor4ub(255, 51, 0, 102));
        EXPECT_EQ(shape->getSkin().color.a, 0.4F);
    }
    EXPECT_EQ(MGLPrimitiveShape::New(nullptr, {Vector(), unitX}, nullptr)->getScale(), Vector(1, 1, 1));
}

using ShapesDeathTest = ShapesTest;

TEST_F(ShapesDeathTest, LinesHaveNoParameters) {
    const auto make = [] {
        Tests::reportToErrorOutput();
        WOPrimitiveShape::New(PRIMITIVE_SHAPE_TYPE::psLINES, std::vector<float>{1});
    };
    EXPECT_EXIT(make(), ::testing::ExitedWithCode(-123 & 255),
                "ERROR: MGLPrimitiveShape\\( WO\\* parentWO, PRIMITIVE_SHAPE_TYPE type, "
                "std::vector<float> parameters\\)\n"
                "   This constructor does not support PRIMITIVE_SHAPE_TYPE of psLINES...\n"
                "   Invoke MGLPrimitiveShape\\( WO\\* parentWO, std::vector< Vector >\\* lines, "
                "std::vector< vtlColor4ub >\\* colors \\)\n"
                "   instead...   Press ENTER to exit...\n");
}

TEST(WOSkyBoxDeathTest, NeedsAHolderOfACamera) {
    EXPECT_EXIT(
        {
            Tests::reportToErrorOutput();
            WOSkyBox::New("sky.bmp", nullptr);
        },
        ::testing::ExitedWithCode(255), "ERROR: User passed NULL cam into MGLSkyBox Constructor\n");
}

} // namespace
} // namespace Vantrel
