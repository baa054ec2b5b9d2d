#include "vtl/scene/parser/ModelParserVRML.h"

#include "tests/gl/scene/ModelFileGLFixture.h"

#include <gtest/gtest.h>

namespace Vantrel {
namespace {

class ModelParserVRMLGLTest : public Tests::ModelFileGLFixture {
protected:
    /** An upright square of side 4, seen along +X with u to the right and v up. */
    std::string writeSquare(const std::string& texture) {
        return folder.write("square.wrl",
                            "#VRML V1.0 ascii\nTexture2 {\n" + texture +
                                "\n}\nCoordinate3 {\npoint [\n0 2 -2,\n0 -2 -2,\n0 -2 2,\n0 2 2,\n]\n}\n"
                                "TextureCoordinate2 {\npoint [\n0 0,\n1 0,\n1 1,\n0 1,\n]\n}\n"
                                "IndexedFaceSet {\ncoordIndex [\n0, 1, 2, -1,\n0, 2, 3, -1\n]\n"
                                "textureCoordIndex [\n0, 1, 2, -1,\n0, 2, 3, -1\n]\n}\n");
    }
    std::unique_ptr<ModelDataShared> parseSquare(const std::string& texture,
                                                 MESH_SHADING_TYPE shading = MESH_SHADING_TYPE::mstAUTO) {
        return parse<ModelParserVRML>(writeSquare(texture), shading);
    }
};

TEST_P(ModelParserVRMLGLTest, MakesOneMeshWithItsTexture) {
    writeImage("a.png", {255, 0, 0});
    const auto data = parseSquare("elsewhere/a.png");
    ASSERT_EQ(data->getMeshes().size(), 1U);
    EXPECT_EQ(data->boundingBox.getMax(), Vector(0, 2, 2)) << "not moved to its middle";
    const ModelMeshSkin& skin = data->getMeshes()[0].getSkin();
    EXPECT_EQ(textureNames(skin), "a.png");
    EXPECT_TRUE(skin.colorMaterial);
    EXPECT_EQ(skin.color.r + skin.color.g + skin.color.b + skin.color.a, 4.0F);
    const ModelMeshRenderDataGenerator& generator = generatorOf(*data);
    EXPECT_EQ(generator.indices, (std::vector<std::uint32_t>{0, 1, 2, 0, 2, 3}));
    ASSERT_EQ(generator.textureCoordSets.size(), 1U);
    EXPECT_EQ(generator.textureCoordSets[0].coords.at(3), Vector(0, 1, 0));
    EXPECT_FALSE(generator.generateTangents);

    using enum MESH_SHADING_TYPE;
    for (const auto& [asked, got] : {std::pair(mstAUTO, mstSMOOTH), std::pair(mstSMOOTH, mstSMOOTH),
                                     std::pair(mstFLAT, mstFLAT), std::pair(mstNONE, mstFLAT)}) {
        EXPECT_EQ(parseSquare("a.png", asked)->getMeshes()[0].getSkin().shadingType, got) << asked;
    }
    const auto missing = parseSquare("none.png");
    EXPECT_EQ(missing->getMeshes()[0].getSkin().textures.at(0)->getGLHandle(),
              ManagerTexture::getDefaultTexture()->getGLHandle());
}

TEST_P(ModelParserVRMLGLTest, FindsMapsByTheNameOfTheColourMap) {
    struct Row {
        const char* colour;
        std::vector<const char*> others;
        const char* textures;
        bool isNormalMapped;
    };
    for (const Row& row :
         {Row{"a_COLOR.png", {}, "a_COLOR.png", false},
          Row{"b_COLOR.png", {"b_NRM.png"}, "b_COLOR.png b_NRM.png", true},
          Row{"c_COLOR.png", {"c_SPEC.png"}, "c_COLOR.png c_SPEC.png", false},
          Row{"d_COLOR.png", {"d_SPEC.png", "d_NRM.png"}, "d_COLOR.png d_NRM.png d_SPEC.png", true},
          Row{"e_COLOR_COLOR_2.bmp",
              {"e_COLOR_NRM.png", "e_NRM.png"},
              "e_COLOR_COLOR_2.bmp e_COLOR_NRM.png",
              true},
          Row{"f_COLOUR.png", {"f_NRM.png"}, "f_COLOUR.png", false}}) {
        writeImage(row.colour, {255, 0, 0});
        for (const char* const name : row.others) {
            writeImage(name, {128, 128, 255});
        }
        const auto data = parseSquare(row.colour);
        const ModelMeshSkin& skin = data->getMeshes()[0].getSkin();
        const std::string textures = textureNames(skin);
        EXPECT_EQ(textures, row.textures);
        EXPECT_EQ(generatorOf(*data).generateTangents, row.isNormalMapped) << row.colour;
        for (const auto& [said, ending] : {std::pair("Normal Map Loaded '", "_NRM.png"),
                                           std::pair("Specularity Map Loaded '", "_SPEC.png")}) {
            const std::string colour = row.colour;
            const std::string line =
                said + folder.path(colour.substr(0, colour.rfind("_COLOR")) + ending) + "'\n";
            EXPECT_EQ(reports.contains(line), textures.find(ending) != std::string::npos) << line;
        }
        EXPECT_EQ(skin.shader != nullptr && skin.shader->getAttributes().size() == 1, row.isNormalMapped);
    }
}

TEST_P(ModelParserVRMLGLTest, GivesEachMapOfTheShaderItsUnit) {
    const std::unique_ptr<GLSLShader> shader = ModelParserVRML::newNormalMapShader();
    const std::array names{"diffuseTexture", "normalTexture", "specularTexture"};
    ASSERT_EQ(shader->getUniforms().size(), names.size());
    shader->bind();
    for (std::size_t unit = 0; unit < names.size(); ++unit) {
        GLint sampled = -1;
        glGetUniformiv(shader->getProgram(), glGetUniformLocation(shader->getProgram(), names[unit]),
                       &sampled);
        EXPECT_EQ(sampled, static_cast<GLint>(unit)) << names[unit];
    }
    shader->unbind();
    EXPECT_EQ(shader->getAttributes().at(0).getName(), "tangent");
}

TEST_P(ModelParserVRMLGLTest, ShowsThePictureTheRightWayRound) {
    writeQuarters("quarters.bmp");
    const auto square = WO::New(writeSquare("quarters.bmp"));
    expectQuarters(*square, "vrml_quarters_");
}

TEST_P(ModelParserVRMLGLTest, LightsByTheNormalMap) {
    // The map's normals lean by 45 degrees to where u grows, which is to the right.
    writeImage("bump_COLOR.png", {255, 255, 255});
    writeImage("bump_NRM.png", {218, 128, 218});
    const auto square = WO::New(writeSquare("bump_COLOR.png"));
    ModelMeshSkin& skin = square->getModel()->getSkin();
    skin.specular = vtlColor4f(0.0F, 0.0F, 0.0F, 1.0F);
    const auto brightness = [&](const Vector& direction) {
        shine(direction, 0);
        return int{pictureOf(*square).at(middle, middle)[0]};
    };
    const int fromRight = brightness(Vector(-1, 0, -1).normalizeMe());
    const int fromLeft = brightness(Vector(1, 0, -1).normalizeMe());
    EXPECT_GT(fromRight, fromLeft + 60)
        << "the picture leans to the right: " << fromRight << ", " << fromLeft;
    EXPECT_GT(fromRight, 120);
    EXPECT_LT(fromLeft, 30);
}

TEST_P(ModelParserVRMLGLTest, HasNothingOfAFileWithoutAWholeShape) {
    const std::string file = folder.write("bad.wrl", "#VRML V1.0 ascii\nTexture2 {\na.png\n}\n");
    EXPECT_EQ(parse<ModelParserVRML>(file), nullptr);
    EXPECT_EQ(reports.text(), "Bad VRML file: " + file + "\n");
    std::string whole = writeSquare("a.png");
    std::ofstream(whole, std::ios::app) << "Texture2 {\nb.png\n}\nCoordinate3 {\npoint [\n9 9 9\n]\n}\n";
    const auto data = parse<ModelParserVRML>(whole);
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(data->boundingBox.getMax(), Vector(0, 2, 2)) << "the first shape alone";
}

INSTANTIATE_TEST_SUITE_P(Contexts, ModelParserVRMLGLTest, Tests::everyGLContext(), Tests::nameOfGLContext);

} // namespace
} // namespace Vantrel
