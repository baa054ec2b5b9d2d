#include "vtl/gl/DebugView.h"
#include "vtl/scene/light/ManagerLight.h"
#include "vtl/scene/light/WOLight.h"
#include "vtl/scene/shape/WOPrimitiveShape.h"

#include "tests/gl/scene/SceneGLFixture.h"
#include "tests/support/UniformBlockReading.h"

#include <cmath>
#include <gtest/gtest.h>

namespace Vantrel {
namespace {

using Tests::black;
using Tests::Pixel;
using Tests::PixelPicture;

constexpr int middle = Tests::pictureSide / 2;
const vtlColor4f white(1.0F, 1.0F, 1.0F, 1.0F);
const vtlColor4f none(0.0F, 0.0F, 0.0F, 1.0F);

class LightsGLTest : public Tests::SceneGLFixture {
protected:
    void SetUp() override {
        SceneGLFixture::SetUp();
        ManagerLight::init();
        ManagerLight::setGlobalAmbient({0, 0, 0, 1});
        ManagerOpenGLState::setGlobalAmbient({0, 0, 0, 1});
        wall = WOPrimitiveShape::New(PRIMITIVE_SHAPE_TYPE::psBOX, {1, 1, 1});
    }
    void TearDown() override {
        wall.reset();
        ManagerLight::shutdown();
        SceneGLFixture::TearDown();
    }

    static std::unique_ptr<WOLight> lightAt(const Vector& place) {
        auto light = WOLight::New(white, white, none, none);
        light->setPosition(place);
        return light;
    }
    /** The wall, which looks at the camera at (-10, 0, 0), in the light that there is. */
    PixelPicture litWall() {
        seeFrom(Vector(-10, 0, 0));
        ManagerLight::writeLights();
        ManagerLight::synchronize(&*eye);
        return pictureOf(*wall);
    }

    std::unique_ptr<WO> wall;
};

TEST_P(LightsGLTest, LightWhatFacesThemFromWhereTheyAre) {
    EXPECT_EQ(litWall().at(middle, middle), (Pixel{255, 255, 255})) << "without any light colours are plain";
    const auto light = lightAt(Vector(-5.5F, 0, 0)); // 5 before the wall's face
    EXPECT_GE(litWall().at(middle, middle)[0], 250);
    light->setPosition(-3.5F, 0, 3 * std::sqrt(3.0F)); // 60 degrees up
    EXPECT_NEAR(litWall().at(middle, middle)[0], 128, 4);
    light->setPosition(5, 0, 0);
    EXPECT_EQ(litWall().at(middle, middle), black) << "from behind";
    light->setIsPositional(false);
    light->setPosition(-1, 0, 0); // the direction to it, and where it looks is the other way
    EXPECT_GE(litWall().at(middle, middle)[0], 250);
}

TEST_P(LightsGLTest, GiveTheirNumbersToTheNextWhenTheyHideOrDie) {
    auto first = lightAt(Vector(-5.5F, 0, 0));
    const auto second = lightAt(Vector(5, 0, 0));
    EXPECT_EQ(second->getLightIndex(), 1);
    EXPECT_GE(litWall().at(middle, middle)[0], 250);
    first->setVisible(false);
    EXPECT_EQ(litWall().at(middle, middle), black);
    EXPECT_EQ(ManagerLight::getEnabledLights(), std::vector<WOLight*>{second.get()});
    if (!isShaderPath()) {
        EXPECT_EQ(second->getLightIndex(), 0);
        EXPECT_FALSE(glIsEnabled(GL_LIGHT1));
    }
    first->setVisible(true);
    EXPECT_GE(litWall().at(middle, middle)[0], 250);
    first.reset();
    EXPECT_EQ(litWall().at(middle, middle), black);
    EXPECT_EQ(ManagerLight::size(), 1U);
}

TEST_P(LightsGLTest, GoIntoTheBlockUpToTheEighth) {
    if (!isShaderPath()) {
        GTEST_SKIP() << "a block of shaders";
    }
    std::vector<std::unique_ptr<WOLight>> lights;
    for (int i = 0; i < 9; ++i) {
        lights.push_back(lightAt(Vector(static_cast<float>(i), 0, 0)));
    }
    lights[1]->setIsPositional(false);
    lights[2]->setColor({0.1F, 0.2F, 0.3F, 0.4F});
    ManagerLight::setGlobalAmbient({0.5F, 0.6F, 0.7F, 0.8F});
    litWall();
    const GLSLUniformBlockLightInfo block = Tests::blockOnCard<GLSLUniformBlockLightInfo>();
    EXPECT_EQ(block.numLights, 8);
    EXPECT_NEAR(block.position[7][2], -17, 1e-4F) << "in eye space";
    EXPECT_EQ(block.position[7][3], 1.0F);
    EXPECT_NEAR(block.position[1][2], -1, 1e-5F) << "where it looks";
    EXPECT_EQ(block.position[1][3], 0.0F);
    EXPECT_EQ(block.color[2], (GLSLUniformBlockLightInfo::Vec4{0.1F, 0.2F, 0.3F, 0.4F}));
    EXPECT_EQ(block.globalAmbient, (GLSLUniformBlockLightInfo::Vec4{0.5F, 0.6F, 0.7F, 0.8F}));
    lights.clear();
    litWall();
    EXPECT_EQ(Tests::blockOnCard<GLSLUniformBlockLightInfo>().numLights, 0);
}

TEST_P(LightsGLTest, TellTheFixedFunctionsEachOfTheirValues) {
    if (isShaderPath()) {
        GTEST_SKIP() << "fixed functions";
    }
    const auto onCard = [] {
        std::array<float, 6> values{}; // of a colour the red: the next value goes over the others
        for (float* value = values.data(); const GLenum name : std::initializer_list<GLenum>{
                                               GL_DIFFUSE, GL_AMBIENT, GL_SPECULAR, GL_CONSTANT_ATTENUATION,
                                               GL_LINEAR_ATTENUATION, GL_QUADRATIC_ATTENUATION}) {
            glGetLightfv(GL_LIGHT0, name, value++);
        }
        return values;
    };
    const auto red = [](float amount) { return vtlColor4f(amount, 0.0F, 0.0F, 1.0F); };
    const auto light = WOLight::New(white, red(0.25F), red(0.5F), red(0.75F));
    light->setConstantAttenuation(5);
    light->setLinearAttenuation(6);
    light->setQuadraticAttenuation(7);
    ManagerLight::writeLights();
    EXPECT_EQ(onCard(), (std::array<float, 6>{0.25F, 0.5F, 0.75F, 5, 6, 7}));
    light->setDiffuse(red(2));
    light->setAmbient(red(3));
    light->setSpecular(red(4));
    EXPECT_EQ(onCard(), (std::array<float, 6>{2, 3, 4, 5, 6, 7}));
}

TEST_P(LightsGLTest, ShowThemselvesOnlyToWhoDebugs) {
    const auto light = lightAt(Vector(0, 0, 0));
    EXPECT_TRUE(!light->cullable && light->renderOrderType == 0) << "before everything";
    EXPECT_EQ(pictureOf(*light).at(middle, middle), black);
    EXPECT_EQ(selectionPictureOf(*light).at(middle, middle), black);
    debugViewEnabled = true;
    EXPECT_LE(Tests::worstDifference(pictureOf(*light).at(middle, middle), {244, 0, 0}), 12);
    EXPECT_EQ(selectionPictureOf(*light).at(middle, middle), selectionColorOf(*light));
    debugViewEnabled = false;
}

INSTANTIATE_TEST_SUITE_P(Contexts, LightsGLTest, Tests::everyGLContext(), Tests::nameOfGLContext);

} // namespace
} // namespace Vantrel
