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
    EXPECT_TRUE(data.normalLineVertices.empty());
    data.buildNormalLines();
    EXPECT_EQ(data.normalLineNumVertices, 8U);
    data.scaleNormalLines(2.5F);
    const std::vector<float> expected{1, 2, 3, 1, 2, 5.5F, 2, 2, 3, 2, 2, 5.5F,
                                      1, 3, 3, 1, 3, 5.5F, 9, 9, 9, 9, 9, 9};
    EXPECT_EQ(data.normalLineVertices, expected) << "the vertex without a normal keeps a line without length";

    ModelMeshRenderData plain = mesh.generateRenderData(MESH_SHADING_TYPE::mstNONE, GL_TRIANGLES);
    plain.buildNormalLines();
    EXPECT_EQ(plain.normalLineNumVertices, 0U);
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
