#include "vtl/render/VantrelGLRenderer.h"

#include "vtl/scene/light/ManagerLight.h"
#include "vtl/scene/light/WOLight.h"
#include "vtl/scene/object/WorldList.h"
#include "vtl/scene/shape/WOPrimitiveShape.h"

#include "tests/gl/scene/SceneGLFixture.h"

#include <gtest/gtest.h>

namespace Vantrel {
namespace {

using Tests::Pixel;
using Tests::PixelPicture;

constexpr int middle = Tests::pictureSide / 2;

class ShadowingRenderer : public VantrelGLRenderer {
public:
    explicit ShadowingRenderer(bool isShadowing, int size = 512) {
        shadowMappingEnabled = isShadowing;
        shadowMapSize = size; // 32 m across, for a light from afar
        init();
    }
};

/** The camera looks from above on a floor with a small box in the air above its middle; light falls from the
 * left. */
class ShadowMapGLTest : public Tests::SceneGLFixture {
protected:
    void SetUp() override {
        SceneGLFixture::SetUp();
        glClearColor(0, 0, 0, 1);
        ManagerOpenGLState::setAxesVisible(false);
        ManagerOpenGLState::setFrustumCullingEnabled(true);
        ManagerLight::init();
        list.emplace(false);
        floor = boxAt(Vector(16, 16, 1), Vector(0, 0, -0.5F));
        box = boxAt(Vector(1, 1, 0.2F), Vector(0, 0, 3));
        const vtlColor4f white;
        light = WOLight::New(white, white, white, white);
        light->setIsPositional(false);
        light->setPosition(-5, 0, 8);
        light->getModel()->setLookDirection(Vector(1, 0, -1).normalizeMe()); // the box shades about (3, 0)
        eye->setPosition(0, 0, 14);
        eye->setCameraLookDirection(Vector(0, 0, -1));
    }
    void TearDown() override {
        list.reset();
        floor.reset();
        box.reset();
        light.reset();
        ManagerLight::shutdown();
        SceneGLFixture::TearDown();
    }
    std::unique_ptr<WO> boxAt(const Vector& lengths, const Vector& place) {
        std::unique_ptr<WO> made =
            WOPrimitiveShape::New(PRIMITIVE_SHAPE_TYPE::psBOX, {lengths.x, lengths.y, lengths.z});
        made->setPosition(place);
        list->push_back(made.get());
        return made;
    }
    PixelPicture shownBy(VantrelGLRenderer& renderer) {
        renderer.renderSingleFrame(&*eye, &*list);
        return picture();
    }
    /** What shows at a point of the floor. */
    Pixel atFloor(const PixelPicture& shown, float x, float y) const {
        const Mat4& all = eye->getShaderCamera().getViewProjectionMatrix();
        const float w = all[3] * x + all[7] * y + all[15];
        const auto pixelOf = [&](std::size_t row) {
            return static_cast<int>(middle * (1 + (all[row] * x + all[4 + row] * y + all[12 + row]) / w));
        };
        return shown.at(pixelOf(0), pixelOf(1));
    }

    std::optional<WorldList> list;
    std::unique_ptr<WO> floor;
    std::unique_ptr<WO> box;
    std::unique_ptr<WOLight> light;
};

TEST_P(ShadowMapGLTest, DarkensWhatTheLightDoesNotReachAndNothingElse) {
    for (const bool isPositional : {false, true}) {
        light->setIsPositional(isPositional); // from (-5, 0, 8) by (0, 0, 3) to the floor at (3, 0)
        const PixelPicture lit = shownBy(*std::make_unique<ShadowingRenderer>(false));
        ShadowingRenderer shadowing(true);
        const PixelPicture shaded = shownBy(shadowing);
        const Pixel inShadow = atFloor(shaded, 3, 0);
        EXPECT_LT(inShadow[0], atFloor(lit, 3, 0)[0] / 2) << isPositional;
        EXPECT_GT(inShadow[0], 20) << "but for the light from everywhere";
        for (const auto& [x, y] :
             {std::pair(5.0F, 0.0F), std::pair(-4.0F, 4.0F), std::pair(3.0F, 3.0F), std::pair(1.0F, 0.0F)}) {
            EXPECT_LE(Tests::worstDifference(atFloor(shaded, x, y), atFloor(lit, x, y)), 2)
                << x << " " << y << " " << isPositional;
        }
        shadowing.destroyShadowMapping();
        EXPECT_EQ(shownBy(shadowing).pixels, shaded.pixels) << "made again";
    }
    GLint framebuffer = -1;
    glGetIntegerv(GL_FRAMEBUFFER_BINDING, &framebuffer);
    EXPECT_EQ(framebuffer, 0);
    EXPECT_FALSE(glIsEnabled(GL_CULL_FACE) || glIsEnabled(GL_POLYGON_OFFSET_FILL));
    light->setVisible(false);
    const PixelPicture plain = shownBy(*std::make_unique<ShadowingRenderer>(false));
    EXPECT_EQ(shownBy(*std::make_unique<ShadowingRenderer>(true)).pixels, plain.pixels)
        << "no light, no shadow";
}

class ShadowMapFixedFunctionGLTest : public ShadowMapGLTest {};

TEST_P(ShadowMapGLTest, WhatTheCameraDoesNotSeeThrowsShadowsToo) {
    box->setPosition(-20, 0, 23);
    light->setPosition(-25, 0, 28);
    eye->setPosition(0, 0, 8);
    ShadowingRenderer shadowing(true);
    const PixelPicture shaded = shownBy(shadowing);
    EXPECT_LT(atFloor(shaded, 3, 0)[0], atFloor(shaded, 1, 0)[0] / 2);
    EXPECT_TRUE(ManagerOpenGLState::isFrustumCullingEnabled());
}

TEST_P(ShadowMapFixedFunctionGLTest, OnlyReports) {
    const PixelPicture plain = shownBy(*std::make_unique<ShadowingRenderer>(false));
    ShadowingRenderer shadowing(true);
    EXPECT_TRUE(reports.contains("ERROR: SHADOW MAPPING REQUIRES GL 3.2+ or greater\n"));
    EXPECT_EQ(shownBy(shadowing).pixels, plain.pixels);
}

INSTANTIATE_TEST_SUITE_P(Contexts, ShadowMapGLTest, Tests::everyShaderContext(), Tests::nameOfGLContext);
INSTANTIATE_TEST_SUITE_P(Contexts, ShadowMapFixedFunctionGLTest,
                         ::testing::Values(Tests::fixedFunctionContext), Tests::nameOfGLContext);

} // namespace
} // namespace Vantrel
