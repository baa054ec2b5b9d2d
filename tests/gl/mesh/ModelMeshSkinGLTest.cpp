#include "vtl/mesh/ModelMeshSkin.h"

#include "tests/gl/mesh/MeshGLFixture.h"

#include <gtest/gtest.h>
#include <tuple>

namespace Vantrel {
namespace {

using Tests::Pixel;
using Tests::squareMesh;

constexpr auto none = MESH_SHADING_TYPE::mstNONE;

using ModelMeshSkinGLTest = Tests::MeshGLFixture;

TEST_P(ModelMeshSkinGLTest, StartsWithWhatThePathNeeds) {
    const ModelMeshSkin skin;
    EXPECT_EQ(skin.shader != nullptr, isShaderPath());
    EXPECT_EQ(skin.textures.size(), isShaderPath() ? 1U : 0U);
    EXPECT_EQ(skin.specularCoefficient, isShaderPath() ? 1000.0F : 128.0F);
    EXPECT_EQ(skin.renderType, MESH_RENDER_TYPE::VBO);
    EXPECT_EQ(skin.shadingType, MESH_SHADING_TYPE::mstNOTINITIALIZED);
    const auto picture = image(1, {1, 2, 3, 4});
    EXPECT_EQ(ModelMeshSkin(textureOn(*picture)).textures.size(), 1U);
}

TEST_P(ModelMeshSkinGLTest, CopiesHaveTexturesAndShadersOfTheirOwn) {
    const auto picture = image(1, {1, 2, 3, 4});
    ModelMeshSkin skin(textureOn(*picture));
    skin.setColor(51, 102, 153, 255);
    skin.normalLength = 7;
    skin.ambient = skin.diffuse = skin.specular = vtlColor4f(0.25F, 0.5F, 0.75F, 1.0F);
    skin.specularCoefficient = 9;
    skin.colorMaterial = false;
    skin.shadingType = MESH_SHADING_TYPE::mstFLAT;
    skin.primitiveType = GL_POINTS;
    skin.lineWidth = 3;
    skin.renderType = MESH_RENDER_TYPE::VA;
    skin.renderNormals = true;
    skin.normalLineWidth = 5;
    skin.visibleFlag = false;
    skin.textures.push_back(nullptr);
    ModelMeshSkin copy = skin;
    const auto look = [](const ModelMeshSkin& of) {
        return std::tuple(of.ambient.r, of.diffuse.g, of.specular.b, of.specularCoefficient, of.colorMaterial,
                          of.shadingType, of.primitiveType, of.lineWidth, of.renderType, of.renderNormals,
                          of.normalLineWidth, of.visibleFlag);
    };
    EXPECT_EQ(look(copy), look(skin));
    EXPECT_NE(copy.textures[0].get(), skin.textures[0].get());
    EXPECT_EQ(copy.textures[0]->getTexData(), picture.get());
    copy.textures[0]->setScale(4);
    EXPECT_EQ(skin.textures[0]->getScale().x, 1.0F);
    EXPECT_EQ(copy.color.g, 0.4F);
    EXPECT_EQ(copy.normalLength, 7.0F);
    if (isShaderPath()) {
        EXPECT_NE(copy.shader.get(), skin.shader.get());
        EXPECT_EQ(copy.shader->getProgram(), skin.shader->getProgram());
    }
    copy = ModelMeshSkin();
    copy = skin;
    EXPECT_EQ(copy.textures.size(), 2U);
}

TEST_P(ModelMeshSkinGLTest, BindingAndUnbindingWithoutMatricesLeavesNothingBehind) {
    const auto picture = image(1, {1, 2, 3, 4});
    ModelMeshSkin skin(textureOn(*picture));
    skin.textures.push_back(textureOn(*picture));
    skin.specularCoefficient = 1000;
    skin.shadingType = none;
    shine(Vector(0, 0, -1), 0.5F);
    clearPicture();
    skin.bind(nullptr);
    if (isShaderPath()) {
        EXPECT_EQ(ManagerShader::getCurrentProgram(), skin.shader->getProgram());
    } else {
        float shininess = 0;
        glGetMaterialfv(GL_FRONT, GL_SHININESS, &shininess);
        EXPECT_EQ(shininess, 128.0F);
        EXPECT_EQ(skin.specularCoefficient, 1000.0F);
        EXPECT_FALSE(glIsEnabled(GL_LIGHTING));
        EXPECT_TRUE(glIsEnabled(GL_TEXTURE_2D));
    }
    GLint unit = 0;
    glGetIntegerv(GL_ACTIVE_TEXTURE, &unit);
    EXPECT_EQ(unit, GL_TEXTURE0);
    skin.unbind();
    EXPECT_EQ(ManagerShader::getCurrentProgram(), 0U);
    if (!isShaderPath()) {
        EXPECT_TRUE(glIsEnabled(GL_LIGHTING));
        EXPECT_FALSE(glIsEnabled(GL_TEXTURE_2D));
    }
}

TEST_P(ModelMeshSkinGLTest, MappedColorsChangeWhatIsDrawn) {
    auto square = squareMesh(0.5F);
    square->colors.assign(4, vtlColor4ub(200, 100, 50, 255));
    ModelMeshDataShared mesh(std::move(square));
    ModelMeshSkin skin;
    skin.shadingType = none;
    EXPECT_EQ(pictureOf(mesh, skin).at(128, 128), (Pixel{200, 100, 50}));
    ModelMeshRenderData& data = *mesh.getRenderData(none, GL_TRIANGLES);
    constexpr std::array<std::uint8_t, 3> green{0, 255, 0};

    reports.clear();
    EXPECT_FALSE(data.setColorArrayAtIndexInVertexList(0, green.data()));
    EXPECT_EQ(reports.text(),
              "bool ModelMeshRenderData::setColorArrayAtIndexInVertexList(...)\n"
              "   mapVBODataToClientMemory() must be invoked prior to calling this method...\n");
    ASSERT_TRUE(data.mapVBODataToClientMemory(GL_READ_WRITE));
    for (std::uint32_t i = 0; i < data.numVertices; ++i) {
        EXPECT_TRUE(data.setColorArrayAtIndexInVertexList(i, green.data()));
    }
    reports.clear();
    EXPECT_FALSE(data.setColorArrayAtIndexInVertexList(data.numVertices, green.data()));
    EXPECT_EQ(reports.text(),
              "ModelMeshRenderData::setColorArrayAtIndexInVertexList()... Index out of range,\n"
              "not setting color array...\n");
    data.unmapVBODataFromClientMemory();
    EXPECT_EQ(data.mappedVertexData, nullptr);
    EXPECT_EQ(pictureOf(mesh, skin).at(128, 128), (Pixel{0, 255, 0}));
}

TEST_P(ModelMeshSkinGLTest, ClientDataNeedsNoMappingAndMappingNeedsABuffer) {
    auto square = squareMesh(0.5F);
    ModelMeshRenderData plain = square->generateRenderData(none, GL_TRIANGLES);
    square->colors.resize(4);
    square->colorFormat = GL_RGBA;
    ModelMeshRenderData data = square->generateRenderData(none, GL_TRIANGLES);
    constexpr std::array<std::uint8_t, 4> color{1, 2, 3, 4};
    EXPECT_TRUE(data.setColorArrayAtIndexInVertexList(3, color.data()));
    EXPECT_EQ(data.getClientBlock().back(), std::byte{4});
    EXPECT_FALSE(plain.setColorArrayAtIndexInVertexList(3, color.data())) << "there is no place for a colour";
    reports.clear();
    EXPECT_FALSE(data.mapVBODataToClientMemory(GL_READ_WRITE));
    EXPECT_EQ(reports.text(), "ERROR: VBOVtx handle is 0. Server-side VBO does not exist.\n"
                              "   cannot map non-existant VBO to client-side memory...\n");
    data.createBuffers();
    data.releaseAll();
    EXPECT_FALSE(data.setColorArrayAtIndexInVertexList(0, color.data()));
    EXPECT_EQ(data.VBOVtx.get(), 0U);
}

INSTANTIATE_TEST_SUITE_P(Contexts, ModelMeshSkinGLTest, Tests::everyGLContext(), Tests::nameOfGLContext);

} // namespace
} // namespace Vantrel
