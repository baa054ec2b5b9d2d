#include "vtl/scene/parser/ModelParserOBJ.h"

#include "vtl/scene/model/Model.h"

#include "tests/gl/scene/SceneGLFixture.h"
#include "tests/support/PictureFiles.h"
#include "tests/support/TemporaryFolder.h"

#include <array>
#include <gtest/gtest.h>

namespace Vantrel {
namespace {

using Tests::Pixel;
using Tests::PixelPicture;

using Channels = std::array<float, 4>;

Channels channels(const vtlColor4f& color) {
    return {color.r, color.g, color.b, color.a};
}

/** Real files are read. */
class ModelParserOBJGLTest : public Tests::SceneGLFixture {
protected:
    void SetUp() override {
        SceneGLFixture::SetUp();
        files.reset();
    }

    std::unique_ptr<ModelDataShared> parse(const std::string& file) {
        reports.clear();
        return ModelParserOBJ(file, Vector(1, 1, 1), MESH_SHADING_TYPE::mstAUTO).parse();
    }

    Tests::TemporaryFolder folder;
};

TEST_P(ModelParserOBJGLTest, ShowsATexturedFaceUprightAndTheRightWayRound) {
    PixelPicture quarters{2, 2, {{255, 0, 0}, {0, 255, 0}, {0, 0, 255}, {255, 255, 0}}}; // from below
    writePicture(quarters, folder.path("quarters.bmp"));
    folder.write("m.mtl", "newmtl m\nKa 1 1 1\nmap_Kd quarters.bmp\n");
    // Seen along +X: to the right is -Y, which is +Z of the file.
    auto face =
        WO::New(folder.write("face.obj", "mtllib m.mtl\nv 0 -2 -2\nv 0 -2 2\nv 0 2 2\nv 0 2 -2\n"
                                         "vt 0 0\nvt 1 0\nvt 1 1\nvt 0 1\nusemtl m\nf 1/1 2/2 3/3 4/4\n"));
    const auto image = face->getModel()->getSkin().textures.at(0).get();
    image->setMagFilter(GL_NEAREST);
    image->setMinFilter(GL_NEAREST);
    const PixelPicture shown = pictureOf(*face);
    constexpr int middle = Tests::pictureSide / 2;
    constexpr int aside = 20;
    const auto isMostly = [&](int x, int y, std::size_t channel) {
        const Pixel& pixel = shown.at(x, y);
        return pixel[channel] > 100 && pixel[channel] > 2 * pixel[(channel + 1) % 3] - 1;
    };
    EXPECT_TRUE(isMostly(middle - aside, middle - aside, 0)) << "red is below, left";
    EXPECT_TRUE(isMostly(middle + aside, middle - aside, 1)) << "green is below, right";
    EXPECT_TRUE(isMostly(middle - aside, middle + aside, 2)) << "blue is above, left";
}

TEST_P(ModelParserOBJGLTest, MakesSkinsOfMaterials) {
    folder.write("m.mtl", "newmtl b\nKd 1 0 0\nKa 0 1 0\nKs 0 0 1\nd 0.25\nnewmtl c\nmap_Kd none.png\n");
    const auto data =
        parse(folder.write("three.obj", "mtllib m.mtl\nmtllib no.mtl\nmtllib no.mtl\nv 0 0 0\nv 1 0 0\n"
                                        "v 0 1 0\nvt 0 0\nf 1 2 3\nf 1 2 4\nusemtl b\nf 1 2 3\n"
                                        "usemtl c\nf 1/1 2/1 3/1\n"));
    EXPECT_EQ(reports.count("No such material library as " + folder.path("no.mtl") + "\n"), 1U);
    EXPECT_TRUE(reports.contains("three.obj': 1 faces name a vertex"));
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
    const auto blender = parse(models + "blender.obj");
    ASSERT_EQ(blender->getMeshes().size(), 2U);
    EXPECT_EQ(blender->getMeshes()[0].getModelMeshDataShared()->getGenerator().indices.size(), 3 * 12U);
    EXPECT_EQ(blender->getMeshes()[1].getModelMeshDataShared()->getGenerator().indices.size(),
              3 * (24U + 20U));
    EXPECT_EQ(blender->boundingBox.getLxLyLz(), Vector(4.5F, 2, 3));
    EXPECT_FALSE(reports.contains("WARNING")) << reports.text();
    const auto three = parse(models + "three_js.obj");
    ASSERT_EQ(three->getMeshes().size(), 2U);
    EXPECT_EQ(three->getMeshes()[1].getModelMeshDataShared()->getGenerator().indices.size(), 3 * 96U);
    EXPECT_FALSE(reports.contains("WARNING")) << reports.text();
}

TEST_P(ModelParserOBJGLTest, HasNothingOfAFileThatIsNotThere) {
    EXPECT_EQ(parse(folder.path("none.obj")), nullptr);
    EXPECT_EQ(reports.text(), "No such .OBJ as " + folder.path("none.obj") + " returning NULL.\n");
}

INSTANTIATE_TEST_SUITE_P(Contexts, ModelParserOBJGLTest, Tests::everyGLContext(), Tests::nameOfGLContext);

} // namespace
} // namespace Vantrel
