#include "vtl/scene/parser/ModelParserOBJ.h"

#include "tests/gl/scene/ModelFileGLFixture.h"

#include <array>
#include <gtest/gtest.h>

namespace Vantrel {
namespace {

using Channels = std::array<float, 4>;

Channels channels(const vtlColor4f& color) {
    return {color.r, color.g, color.b, color.a};
}

class ModelParserOBJGLTest : public Tests::ModelFileGLFixture {};

TEST_P(ModelParserOBJGLTest, ShowsThePictureTheRightWayRound) {
    writeQuarters("quarters.bmp");
    folder.write("m.mtl", "newmtl m\nKa 1 1 1\nmap_Kd quarters.bmp\n");
    // Seen along +X: to the right is -Y, which is +Z of the file.
    const auto square =
        WO::New(folder.write("square.obj", "mtllib m.mtl\nv 0 -2 -2\nv 0 -2 2\nv 0 2 2\nv 0 2 -2\n"
                                           "vt 0 0\nvt 1 0\nvt 1 1\nvt 0 1\nusemtl m\nf 1/1 2/2 3/3 4/4\n"));
    expectQuarters(*square, "obj_quarters_");
}

TEST_P(ModelParserOBJGLTest, MakesSkinsOfMaterials) {
    folder.write("m.mtl", "newmtl b\nKd 1 0 0\nKa 0 1 0\nKs 0 0 1\nd 0.25\nnewmtl c\nmap_Kd none.png\n");
    const auto data = parse<ModelParserOBJ>(
        folder.write("three.obj", "mtllib m.mtl\nmtllib no.mtl\nmtllib ./no.mtl\nv 0 0 0\nv 1 0 0\n"
                                  "v 0 1 0\nvt 0 0\nf 1 2 3\nf 1 2 4\nusemtl b\nf 1 2 3\n"
                                  "usemtl c\nf 1/1 2/1 3/1\n"));
    EXPECT_EQ(reports.count("No such material library as " + folder.path("no.mtl") + "\n"), 1U);
    EXPECT_TRUE(reports.contains(
        "three.obj': 1 faces lack a vertex, a texture coordinate or a normal, leaving them out...\n"));
    ASSERT_EQ(data->getMeshes().size(), 3U);
    const ModelMeshSkin& unknown = data->getMeshes()[0].getSkin();
    EXPECT_EQ(channels(unknown.diffuse), (Channels{0, 0, 0, 1}));
    EXPECT_EQ(unknown.shadingType, MESH_SHADING_TYPE::mstSMOOTH);
    EXPECT_FALSE(unknown.colorMaterial);
    const ModelMeshSkin& plain = data->getMeshes()[1].getSkin();
    EXPECT_EQ(channels(plain.diffuse), (Channels{1, 0, 0, 0.25F}));
    EXPECT_EQ(channels(plain.ambient), (Channels{0, 1, 0, 0.25F}));
    EXPECT_EQ(channels(plain.specular), (Channels{0, 0, 1, 0.25F}));
    const ModelMeshSkin& textured = data->getMeshes()[2].getSkin();
    EXPECT_EQ(channels(textured.diffuse), (Channels{1, 1, 1, 0.25F}))
        << "white, so that the image's colours are its own";
    ASSERT_EQ(textured.textures.size(), 1U);
    EXPECT_EQ(textured.textures[0]->getGLHandle(), ManagerTexture::getDefaultTexture()->getGLHandle());
}

TEST_P(ModelParserOBJGLTest, ReadsWhatOtherProgramsWrite) {
    const std::string models = KELDIN_TEST_DATA "models/";
    const auto blender = parse<ModelParserOBJ>(models + "blender.obj");
    ASSERT_EQ(blender->getMeshes().size(), 2U);
    EXPECT_EQ(generatorOf(*blender, 0).indices.size(), 3 * 12U);
    EXPECT_EQ(generatorOf(*blender, 1).indices.size(), 3 * (24U + 20U));
    EXPECT_EQ(blender->boundingBox.getLxLyLz(), Vector(4.5F, 2, 3));
    EXPECT_FALSE(reports.contains("WARNING")) << reports.text();
    const auto three = parse<ModelParserOBJ>(models + "three_js.obj");
    ASSERT_EQ(three->getMeshes().size(), 2U);
    EXPECT_EQ(generatorOf(*three, 1).indices.size(), 3 * 96U);
    EXPECT_FALSE(reports.contains("WARNING")) << reports.text();
}

TEST_P(ModelParserOBJGLTest, HasNothingOfAFileThatIsNotThere) {
    EXPECT_EQ(parse<ModelParserOBJ>(folder.path("none.obj")), nullptr);
    EXPECT_EQ(reports.text(), "No such .OBJ as " + folder.path("none.obj") + " returning NULL.\n");
}

INSTANTIATE_TEST_SUITE_P(Contexts, ModelParserOBJGLTest, Tests::everyGLContext(), Tests::nameOfGLContext);

} // namespace
} // namespace Vantrel
