#include "vtl/gl/DebugView.h"
#include "vtl/gl/SetEnabled.h"
#include "vtl/scene/light/ManagerLight.h"
#include "vtl/scene/light/WOLight.h"
#include "vtl/scene/shape/WOPrimitiveShape.h"

#include "tests/gl/scene/SceneGLFixture.h"
#include "tests/support/GLObjectCount.h"
#include "tests/support/PictureFiles.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace Vantrel {
namespace {

using Tests::black;
using Tests::PixelPicture;

constexpr float middle = Tests::pictureSide / 2;
/** So that what is lit, is so from everywhere, and alike on both ways to draw. */
const vtlColor4f dark(0.0F, 0.0F, 0.0F, 1.0F);

class LensFlareGLTest : public Tests::SceneGLFixture {
protected:
    void SetUp() override {
        SceneGLFixture::SetUp();
        start();
    }
    void TearDown() override {
        light.reset();
        ManagerLight::shutdown();
        SceneGLFixture::TearDown();
    }
    void start() {
        ManagerLight::init();
        ManagerLight::setGlobalAmbient({1, 1, 1, 1});
        ManagerOpenGLState::setGlobalAmbient({1, 1, 1, 1});
        light = WOLight::New(dark, dark, dark, dark);
        light->setPosition(place);
        seeFrom(Vector(-40, 0, 0));
    }

    /** What the flares add to a scene of one object. */
    PixelPicture flares(WO* object = nullptr) {
        clearPicture();
        ManagerLight::writeLights();
        ManagerLight::synchronize(&*eye);
        if (object != nullptr) {
            object->render(&*eye);
        }
        ManagerLight::renderLensFlares(&*eye);
        EXPECT_EQ(checkGLError(0), 0U) << reports.text();
        return picture();
    }
    static int litPixels(const PixelPicture& shown) {
        return static_cast<int>(std::ssize(shown.pixels) - std::ranges::count(shown.pixels, black));
    }

    /** To the left of the middle and above it. */
    const Vector place{0, 12, 9};
    std::unique_ptr<WOLight> light;
};

TEST_P(LensFlareGLTest, ShowWhereTheLightIsAndOnALineThroughTheMiddle) {
    EXPECT_EQ(litPixels(flares()), 0) << "not enabled";
    light->setLensFlareEnabled(true);
    const PixelPicture shown = flares();
    const float pixelsPerMetre = middle / (40 * std::tan(32.5F * 0.017453292F));
    const float x = -place.y * pixelsPerMetre;
    const float y = place.z * pixelsPerMetre;
    const float reach = std::hypot(x, y);
    EXPECT_GE(shown.at(static_cast<int>(middle + x), static_cast<int>(middle + y))[2], 250);
    int across = 0;
    for (int row = 0; row < Tests::pictureSide; ++row) {
        for (int column = 0; column < Tests::pictureSide; ++column) {
            const float fromMiddleX = static_cast<float>(column) + 0.5F - middle;
            const float fromMiddleY = static_cast<float>(row) + 0.5F - middle;
            if (shown.at(column, row) == black ||
                std::hypot(fromMiddleX - x, fromMiddleY - y) < 19 * pixelsPerMetre) {
                continue;
            }
            EXPECT_LT(std::abs(fromMiddleX * y - fromMiddleY * x) / reach, 1.5F * pixelsPerMetre)
                << column << ", " << row;
            across += fromMiddleX * x + fromMiddleY * y < -0.5F * reach * reach ? 1 : 0;
        }
    }
    EXPECT_GT(across, 30) << "on the far side of the middle";
}

TEST_P(LensFlareGLTest, HideWithTheLight) {
    light->setLensFlareEnabled(true);
    const auto cube = WOPrimitiveShape::New(PRIMITIVE_SHAPE_TYPE::psCUBE, {1});
    cube->setPosition(place * 0.5F + Vector(-20, 0, 0));
    const PixelPicture hidden = flares(cube.get());
    EXPECT_LT(litPixels(hidden), 500) << "the cube and nothing else";
    light->setLensFlareEnabled(false);
    EXPECT_EQ(flares(cube.get()).pixels, hidden.pixels);
    light->setLensFlareEnabled(true);
    cube->setPosition(place * 0.5F + Vector(-20, 3, 0));
    EXPECT_GT(litPixels(flares(cube.get())), 5000) << "with the cube beside it";
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    for (const Vector& unseen : {Vector(-80, 0, 0), Vector(0, 50, 0), Vector(2000, 0, 0), Vector(-40, 0, 0),
                                 Vector(nan, 0, 0), Vector(0, std::numeric_limits<float>::infinity(), 0)}) {
        light->setPosition(unseen);
        EXPECT_EQ(litPixels(flares()), 0) << unseen.toString();
    }
    light->setPosition(place);
    debugViewEnabled = true;
    EXPECT_EQ(litPixels(flares()), 0) << "the marker would hide it";
    debugViewEnabled = false;
}

TEST_P(LensFlareGLTest, GiveBackWhatTheySwitch) {
    light->setLensFlareEnabled(true);
    flares();
    for (const bool on : {false, true}) {
        setEnabled(GL_DEPTH_TEST, on);
        setEnabled(GL_BLEND, on);
        glColorMask(GL_TRUE, on ? GL_TRUE : GL_FALSE, GL_TRUE, GL_TRUE);
        glDepthMask(on ? GL_TRUE : GL_FALSE);
        glPointSize(on ? 1.0F : 3.0F);
        ManagerLight::renderLensFlares(&*eye);
        EXPECT_EQ(glIsEnabled(GL_DEPTH_TEST), on);
        EXPECT_EQ(glIsEnabled(GL_BLEND), on);
        std::array<GLboolean, 4> colors{};
        glGetBooleanv(GL_COLOR_WRITEMASK, colors.data());
        EXPECT_EQ(colors, (std::array<GLboolean, 4>{1, on, 1, 1}));
        GLboolean depths = 0;
        glGetBooleanv(GL_DEPTH_WRITEMASK, &depths);
        EXPECT_EQ(depths, on);
        float pointSize = 0;
        glGetFloatv(GL_POINT_SIZE, &pointSize);
        EXPECT_EQ(pointSize, on ? 1.0F : 3.0F);
    }
    std::vector<float> depths(Tests::pictureSide * Tests::pictureSide);
    flares();
    glReadPixels(0, 0, Tests::pictureSide, Tests::pictureSide, GL_DEPTH_COMPONENT, GL_FLOAT, depths.data());
    EXPECT_EQ(std::ranges::count(depths, 1.0F), std::ssize(depths)) << "nothing lies in the way of others";
}

TEST_P(LensFlareGLTest, KeepTheSkinsThatTheLightHas) {
    light->setLensFlareEnabled(true);
    const int withOwn = litPixels(flares());
    for (int i = 0; i < 4; ++i) {
        ModelMeshSkin unseen;
        unseen.visibleFlag = false;
        light->getModel()->addSkin(unseen, 0);
    }
    EXPECT_EQ(litPixels(flares()), withOwn) << "behind the four that are drawn";
    light->getModel()->getSkins().erase(light->getModel()->getSkins().begin(),
                                        light->getModel()->getSkins().begin() + 4);
    EXPECT_EQ(litPixels(flares()), 0);
    light->getModel()->getSkins().pop_back();
    EXPECT_EQ(litPixels(flares()), withOwn) << "three are too few";
}

TEST_P(LensFlareGLTest, LookAsInTheFixedFunctions) {
    if (!isShaderPath()) {
        GTEST_SKIP() << "these are the fixed functions";
    }
    light.reset();
    const Tests::GLObjectCount before = Tests::countGLObjects();
    const auto withBackground = [&] {
        start();
        light->setLensFlareEnabled(true);
        auto ground = WOPrimitiveShape::New(PRIMITIVE_SHAPE_TYPE::psBOX, {60, 60, 1});
        ground->getModel()->getSkin().setColor(60, 110, 70, 255);
        ground->setPosition(0, 0, -10);
        PixelPicture shown = flares(ground.get());
        light.reset();
        return shown;
    };
    const PixelPicture shown = withBackground();
    EXPECT_EQ(Tests::countGLObjects(), before) << "when the light has died";
    ManagerLight::shutdown();
    restartGL(Tests::fixedFunctionContext);
    const PixelPicture expected = withBackground();
    const int worst =
        std::max(Tests::worstDifference(shown, expected), Tests::worstDifference(expected, shown));
    EXPECT_LE(worst, 2);
    Tests::leavePictures(shown, expected, Tests::nameOfGLContext({GetParam(), 0}) + " lens flare", worst > 2);
}

INSTANTIATE_TEST_SUITE_P(Contexts, LensFlareGLTest, Tests::everyGLContext(), Tests::nameOfGLContext);

} // namespace
} // namespace Vantrel
