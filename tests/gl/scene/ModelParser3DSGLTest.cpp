#include "vtl/scene/parser/ModelParser3DS.h"

#include "tests/gl/scene/ModelFileGLFixture.h"
#include "tests/support/Chunks3DS.h"

#include <gtest/gtest.h>

namespace Vantrel {
namespace {

using namespace Tests;

constexpr std::uint16_t texture1 = 0xA200;
constexpr std::uint16_t bump = 0xA230;

class ModelParser3DSGLTest : public ModelFileGLFixture {
protected:
    /** An upright square of side 4, seen along +X, with u to the right and v up. */
    std::string writeSquare(std::string_view maps, float corner = 0) {
        const std::string coords =
            chunk3DS(0x4140, packedList(std::vector<std::array<float, 2>>{{0, 0}, {1, 0}, {1, 1}, {0, 1}}));
        return folder.write(
            "square.3DS", file3DS(material3DS("m", maps) +
                                  object3DS({{corner, 4, 0}, {corner, 0, 0}, {corner, 0, 4}, {corner, 4, 4}},
                                            coords + faces3DS({{0, 1, 2}, {0, 2, 3}}, "m"))));
    }
};

TEST_P(ModelParser3DSGLTest, MakesSkinsOfMaterials) {
    for (const char* const name : {"wood.png", "bump.png", "c_COLOR.png", "d_COLOR.png", "d_NRM.png"}) {
        writeImage(name, {200, 100, 50});
    }
    const std::string none = isShaderPath() ? "DEFAULT_WHITE_TEXTURE_2X2" : "";
    struct Row {
        std::string maps;
        std::string textures;
    };
    for (const Row& row :
         {Row{"", none}, Row{map3DS(bump, "bump.png"), "bump.png"},
          Row{map3DS(texture1, "wood.png") + map3DS(bump, "bump.png"), "wood.png"},
          Row{map3DS(texture1, "none.png"), "DefaultTexture.bmp"},
          Row{map3DS(texture1, "x"), "DefaultTexture.bmp"},
          Row{map3DS(texture1, "c.tga"), "c_COLOR.png DefaultTexture.bmp DefaultTexture.bmp"},
          Row{map3DS(texture1, "d.jpg"), "d_COLOR.png d_NRM.png DefaultTexture.bmp"}}) {
        const auto data = parse<ModelParser3DS>(writeSquare(row.maps));
        ASSERT_EQ(data->getMeshes().size(), 1U);
        const ModelMeshSkin& skin = data->getMeshes()[0].getSkin();
        EXPECT_EQ(textureNames(skin), row.textures);
        EXPECT_EQ(skin.shadingType, MESH_SHADING_TYPE::mstSMOOTH);
        EXPECT_FALSE(skin.colorMaterial);
        const ModelMeshRenderDataGenerator& generator = generatorOf(*data);
        ASSERT_EQ(generator.textureCoordSets.size(), skin.textures.size()) << row.textures;
        for (const ModelMeshTextureCoordSet& set : generator.textureCoordSets) {
            EXPECT_EQ(set.coords.at(2), Vector(1, 1, 0));
        }
        const bool isNormalMapped = skin.textures.size() == 3;
        EXPECT_EQ(generator.generateTangents, isNormalMapped);
        EXPECT_EQ(reports.count("Using tangents!\n"), isNormalMapped ? 1U : 0U);
        EXPECT_EQ(skin.shader != nullptr && skin.shader->getAttributes().size() == 1, isNormalMapped);
    }
}

TEST_P(ModelParser3DSGLTest, TakesColoursAndShading) {
    const std::string colors = chunk3DS(0xA010, chunk3DS(0x0010, packed(0.25F, 0.5F, 0.75F))) +
                               chunk3DS(0xA020, chunk3DS(0x0011, std::string("\0\0\xFF", 3)));
    const auto data = parse<ModelParser3DS>(writeSquare(colors), MESH_SHADING_TYPE::mstFLAT);
    const ModelMeshSkin& skin = data->getMeshes().at(0).getSkin();
    EXPECT_EQ(skin.shadingType, MESH_SHADING_TYPE::mstFLAT);
    const std::array<float, 8> expected{0.25F, 0.5F, 0.75F, 1, 0, 0, 1, 1};
    EXPECT_EQ((std::array<float, 8>{skin.ambient.r, skin.ambient.g, skin.ambient.b, skin.ambient.a,
                                    skin.diffuse.r, skin.diffuse.g, skin.diffuse.b, skin.diffuse.a}),
              expected);
}

TEST_P(ModelParser3DSGLTest, ShowsATexturedFaceInTheMiddle) {
    writeQuarters("quarters.bmp");
    const std::string white = chunk3DS(0x0010, packed(1.0F, 1.0F, 1.0F));
    const auto square = WO::New(
        writeSquare(map3DS(texture1, "quarters.bmp") + chunk3DS(0xA010, white) + chunk3DS(0xA020, white), 7));
    EXPECT_EQ(square->getModel()->getBoundingBox().getMax(), Vector(0, 2, 2));
    expectQuarters(*square, "3ds_quarters_");
}

TEST_P(ModelParser3DSGLTest, HasNothingOfAFileThatIsNone) {
    const std::string none = folder.path("none.3ds");
    EXPECT_EQ(parse<ModelParser3DS>(none), nullptr);
    EXPECT_EQ(reports.text(), "File " + none + " not found. Returning NULL\n");
    const std::string broken = folder.write("broken.3ds", "no 3DS file");
    EXPECT_EQ(parse<ModelParser3DS>(broken), nullptr);
    EXPECT_TRUE(reports.contains("File " + broken + " not found. Returning NULL\n"));
}

INSTANTIATE_TEST_SUITE_P(Contexts, ModelParser3DSGLTest, everyGLContext(), nameOfGLContext);

} // namespace
} // namespace Vantrel
