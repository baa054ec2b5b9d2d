#include "vtl/mesh/MeshShadingType.h"
#include "vtl/mesh/ModelMeshRenderDataGenerator.h"

#include "tests/support/ReportCapture.h"
#include "tests/support/VertexBlock.h"

#include <gtest/gtest.h>
#include <sstream>

namespace Vantrel {
namespace {

TEST(ModelMeshRenderDataTest, NormalLinesStandOnTheVertices) {
    const Tests::ReportCapture reports;
    ModelMeshRenderDataGenerator mesh;
    mesh.vertices = {{1, 2, 3}, {2, 2, 3}, {1, 3, 3}, {9, 9, 9}};
    mesh.indices = {0, 1, 2};
    ModelMeshRenderData data = mesh.generateRenderData(MESH_SHADING_TYPE::mstSMOOTH, GL_TRIANGLES);
    EXPECT_EQ(data.normalLineIndices, nullptr);
    data.buildNormalLines();
    EXPECT_EQ(data.normalLineNumVertices, 8U);
    EXPECT_EQ(
        Tests::indexNumbers(data.normalLineIndices, data.normalLineNumIndices, data.normalLineIndexType),
        (std::vector<std::uint32_t>{0, 1, 2, 3, 4, 5, 6, 7}));
    data.scaleNormalLines(2.5F);
    const std::vector<float> expected{1, 2, 3, 1, 2, 5.5F, 2, 2, 3, 2, 2, 5.5F,
                                      1, 3, 3, 1, 3, 5.5F, 9, 9, 9, 9, 9, 9};
    EXPECT_EQ(data.normalLineVertices, expected) << "the vertex without a normal keeps a line without length";
    EXPECT_EQ(mesh.buildNormalLineVertices(data.getClientBlock(), 99).size(), 24U)
        << "more vertices than the block has";

    ModelMeshRenderData plain = mesh.generateRenderData(MESH_SHADING_TYPE::mstNONE, GL_TRIANGLES);
    plain.buildNormalLines();
    EXPECT_EQ(plain.normalLineNumVertices, 0U);
}

TEST(ModelMeshRenderDataTest, WidthOfNormalLineIndicesHoldsTheirLargestValue) {
    const std::vector<std::pair<std::uint32_t, GLenum>> rows{{127, GL_UNSIGNED_BYTE},
                                                             {128, GL_UNSIGNED_SHORT},
                                                             {32767, GL_UNSIGNED_SHORT},
                                                             {32768, GL_UNSIGNED_INT}};
    for (const auto& [vertices, type] : rows) {
        const ModelMeshIndexArray array = normalLineIndicesOf(vertices);
        EXPECT_EQ(array.type, type);
        EXPECT_EQ(Tests::indexNumbers(array.data, array.count, array.type).back(), 2 * vertices - 1);
    }
}

TEST(MeshShadingTypeTest, IsPrintedByItsName) {
    const auto textOf = [](int value) {
        std::ostringstream out;
        out << static_cast<MESH_SHADING_TYPE>(value);
        return out.str();
    };
    EXPECT_EQ(textOf(0), "MESH_SHADING_TYPE::mstSMOOTH");
    EXPECT_EQ(textOf(2), "MESH_SHADING_TYPE::mstNONE");
    EXPECT_EQ(textOf(5), "MESH_SHADING_TYPE::mstNUM_MESH_SHADING_TYPE");
    EXPECT_TRUE(
        textOf(200).starts_with("MESH_SHADING_TYPE::  ERROR type not found for 200, MeshShadingType.cpp:"));
}

} // namespace
} // namespace Vantrel
