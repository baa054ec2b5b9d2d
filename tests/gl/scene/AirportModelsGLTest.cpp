#include "tests/gl/scene/ModelFileGLFixture.h"

#include <gtest/gtest.h>

namespace Vantrel {
namespace {

/** A model that was made for the viewer, with the scale that it is read with. */
struct MadeModel {
    const char* file;
    Vector scale;
    Vector size;
    /** Texture of the last mesh. */
    const char* texture;
};

const MadeModel models[] = {
    {"local/models/grassFloor400x400_pp.wrl", {100, 100, 1}, {40000, 40000, 0}, "grassFloor.jpg"},
    {"shared/models/road26x10.wrl", {375, 10, 0.5F}, {375 * 26.666666F, 100, 0.5F}, "RunwayBase.jpg"},
    {"shared/models/cube4x4x4redShinyPlastic_pp.wrl", {1, 1, 1}, {4, 4, 4}, "redShinyPlastic.png"},
    {"local/./models/vorBase.3DS", {0.007515011F, 0.007767292F, 0.056433409F}, {2, 2, 1}, "vorMesh.png"},
    {"local/./models/vorAnt.3DS",
     {0.007515011F, 0.007767292F, 0.11129661F},
     {2, 2, 1},
     "DEFAULT_WHITE_TEXTURE_2X2"},
};

using AirportModelsGLTest = Tests::ModelFileGLFixture;

TEST_P(AirportModelsGLTest, AreAsLargeAsTheSceneTakesThem) {
    for (const MadeModel& made : models) {
        const auto object = WO::New(KELDIN_DATA + std::string(made.file), made.scale);
        const Vector size = object->getModel()->getBoundingBox().getLxLyLz();
        const Vector center = object->getModel()->getBoundingBox().getCenter();
        EXPECT_LE((size - made.size).magnitude(), 1e-6F * made.size.magnitude()) << made.file;
        EXPECT_LE(center.magnitude(), 1e-6F * made.size.magnitude()) << made.file;
        const auto& meshes = object->getModel()->getModelDataShared()->getMeshes();
        EXPECT_EQ(textureNames(object->getModel()->getSkin(static_cast<std::uint32_t>(meshes.size() - 1))),
                  made.texture);
    }
}

INSTANTIATE_TEST_SUITE_P(Contexts, AirportModelsGLTest, ::testing::Values(Tests::GLContextRow{3, 2, "core"}),
                         Tests::nameOfGLContext);

} // namespace
} // namespace Vantrel
