#include "vtl/render/VantrelGLRenderer.h"

#include "vtl/math/MatrixBuilders.h"
#include "vtl/render/Unproject.h"
#include "vtl/scene/light/ManagerLight.h"
#include "vtl/scene/light/WOLight.h"
#include "vtl/scene/object/WorldList.h"
#include "vtl/scene/shape/WOPrimitiveShape.h"

#include "tests/gl/scene/SceneGLFixture.h"
#include "tests/support/UniformBlockReading.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace Vantrel {
namespace {

using Tests::black;
using Tests::Pixel;
using Tests::PixelPicture;

constexpr int side = Tests::pictureSide;

class VantrelGLRendererGLTest : public Tests::SceneGLFixture {
protected:
    void SetUp() override {
        SceneGLFixture::SetUp();
        glClearColor(0, 0, 0, 1);
        ManagerOpenGLState::setAxesVisible(false);
        renderer = VantrelGLRenderer::New();
        list.emplace();
    }
    void TearDown() override {
        list.reset();
        renderer.reset();
        SceneGLFixture::TearDown();
    }

    /** A cube of that side in the list. */
    std::unique_ptr<WO> cubeAt(const Vector& position, float length) {
        std::unique_ptr<WO> cube = WOPrimitiveShape::New(PRIMITIVE_SHAPE_TYPE::psCUBE, {length});
        cube->setPosition(position);
        list->push_back(cube.get());
        return cube;
    }
    WO* pick(int x, int y) {
        WO* object = nullptr;
        renderer->updateSelection(&*eye, &*list, object, place, x, y);
        return object;
    }

    std::unique_ptr<VantrelGLRenderer> renderer;
    std::optional<WorldList> list;
    std::optional<Vector> place;
};

TEST_P(VantrelGLRendererGLTest, PicksWhatShowsAtThePixelAndNothingBesideIt) {
    const auto upper = cubeAt(Vector(0, 0, 3), 2);
    const auto parent = cubeAt(Vector(0, 2, -2), 1);
    WO& child = parent->addChild(WOPrimitiveShape::New(PRIMITIVE_SHAPE_TYPE::psCUBE, {1}));
    child.setPosition(0, 4, -2);
    const auto hidden = cubeAt(Vector(4, 0, 5), 1);
    renderer->renderSelectionFrame(&*eye, &*list);
    const PixelPicture ids = picture();
    int picked = 0;
    for (int y = 0; y < side; y += 5) {
        for (int x = 0; x < side; x += 5) {
            const WO* const object = renderer->pickWOAtPixel(x, y, &*eye, &*list);
            const Pixel shown = ids.at(x, side - 1 - y);
            EXPECT_EQ(shown, object != nullptr ? selectionColorOf(*object) : black) << x << " " << y;
            picked += object != nullptr ? 1 : 0;
        }
    }
    EXPECT_GT(picked, 50);
    // Half the height of the view at the distance of the cubes' near faces, 9 and 9.5.
    const float tangent = std::tan(32.5F * 0.017453292F);
    EXPECT_EQ(pick(side / 2, static_cast<int>(side / 2 * (1 - 3.9F / 9 / tangent))), upper.get());
    EXPECT_EQ(pick(side / 2, static_cast<int>(side / 2 * (1 - 4.1F / 9 / tangent)) - 1), nullptr);
    SDL_MouseButtonEvent event{};
    event.x = static_cast<int>(side / 2 * (1 - 4 / 9.5F / tangent));
    event.y = static_cast<int>(side / 2 * (1 + 2 / 9.5F / tangent));
    EXPECT_EQ(renderer->pickWO(event, &*eye, &*list), &child) << "objects below others are found too";
}

TEST_P(VantrelGLRendererGLTest, TellsThePlaceInTheWorldAtAPixel) {
    const auto cube = cubeAt(Vector(0, 0, 0), 4);
    EXPECT_EQ(pick(side / 2 + 20, side / 2 - 30), cube.get());
    const float perPixel = 2 * 8 * std::tan(32.5F * 0.017453292F) / side; // on the near face, at 8
    ASSERT_TRUE(place.has_value());
    EXPECT_NEAR(place->x, -2, 0.01F);
    EXPECT_NEAR(place->y, -20.5F * perPixel, 0.01F);
    EXPECT_NEAR(place->z, 30 * perPixel - perPixel / 2, 0.01F);
    EXPECT_EQ(pick(1, 1), nullptr);
    ASSERT_TRUE(place.has_value());
    EXPECT_NEAR(place->x, ManagerOpenGLState::getFarPlane() - 10, 5) << "the far plane";
}

TEST_P(VantrelGLRendererGLTest, DrawsTheAxesBeforeTheWorld) {
    const auto cube = cubeAt(Vector(0, 0, 0), 1);
    seeFrom(Vector(-10, -10, 10));
    ManagerOpenGLState::setAxesVisible(true);
    renderer->renderSingleFrame(&*eye, &*list);
    const PixelPicture shown = picture();
    for (const Pixel& color : {Pixel{255, 0, 0}, Pixel{0, 255, 0}, Pixel{0, 0, 255}}) {
        EXPECT_GT(std::ranges::count(shown.pixels, color), 50);
    }
    EXPECT_EQ(shown.at(side / 2, side / 2), (Pixel{255, 255, 255})) << "the cube hides where they meet";
}

TEST_P(VantrelGLRendererGLTest, DrawsLensFlaresOverTheWorld) {
    ManagerLight::init();
    const auto behind = cubeAt(Vector(20, 0, 0), 30);
    behind->getModel()->getSkin().setColor(0, 0, 0, 255);
    auto light = WOLight::New(vtlColor4f(), vtlColor4f(), vtlColor4f(), vtlColor4f());
    light->setPosition(0, 0, 0);
    light->setLensFlareEnabled(true);
    renderer->renderSingleFrame(&*eye, &*list);
    EXPECT_GT(picture().at(side / 2, side / 2)[1], 200);
    const auto before = cubeAt(Vector(-3, 0, 0), 1);
    before->getModel()->getSkin().setColor(0, 0, 0, 255);
    renderer->renderSingleFrame(&*eye, &*list);
    EXPECT_LT(picture().at(side / 2 + 20, side / 2)[1], 200) << "which hides the light";
    light.reset();
    ManagerLight::shutdown();
}

TEST_P(VantrelGLRendererGLTest, GivesTheCameraToShaders) {
    eye->setPosition(1, 2, 3);
    eye->setViewport({3, 5, side / 2, side / 4});
    struct : VantrelGLRenderer {
        using VantrelGLRenderer::cameraTransforms;
    } sender;
    if (isShaderPath()) {
        sender.cameraTransforms->data.passMode = GLSLUniformBlockCameraTransforms::passAfterShadowMap;
    }
    sender.updateCamera(&*eye);
    std::array<GLint, 4> viewport{};
    glGetIntegerv(GL_VIEWPORT, viewport.data());
    EXPECT_EQ(viewport, (std::array<GLint, 4>{3, 5, side / 2, side / 4}));
    std::array<int, 4> told{};
    eye->getViewport().getViewport(told.data());
    EXPECT_EQ(told, viewport);
    if (!isShaderPath()) {
        std::array<float, 16> view{};
        glGetFloatv(GL_MODELVIEW_MATRIX, view.data());
        EXPECT_EQ(view, eye->getViewMatrix().m);
        return;
    }
    const auto block = Tests::blockOnCard<GLSLUniformBlockCameraTransforms>();
    EXPECT_EQ(block.view, eye->getViewMatrix().m);
    EXPECT_EQ(block.projection, eye->getProjectionMatrix().m);
    EXPECT_EQ(block.passMode, GLSLUniformBlockCameraTransforms::normalPass);
}

TEST_P(VantrelGLRendererGLTest, PicksInAViewportThatIsSmallerThanTheWindow) {
    const auto cube = cubeAt(Vector(0, 0, 3), 2);
    eye->setViewport({0, 0, side / 2, side / 2});
    const float tangent = std::tan(32.5F * 0.017453292F);
    EXPECT_EQ(pick(side / 4, static_cast<int>(side / 4 * (1 - 3 / 9.0F / tangent))), cube.get());
    EXPECT_EQ(pick(side / 4, static_cast<int>(side / 4 * (1 + 3 / 9.0F / tangent))), nullptr);
}

TEST(UnprojectTest, IsTheWayBackFromTheWindow) {
    Mat4 projection;
    Mat4 view;
    buildPerspective(50, 1.5F, 1, 100, projection);
    buildLookAt(Vector(3, -8, 4), Vector(1, 1, 0), unitZ, view);
    const std::array<int, 4> viewport{10, 20, 300, 200};
    const Vector point(2, 3, -1);
    const Mat4 all = projection * view;
    std::array<float, 4> clip{};
    for (std::size_t row = 0; row < 4; ++row) {
        clip[row] = all[row] * point.x + all[4 + row] * point.y + all[8 + row] * point.z + all[12 + row];
    }
    Vector back;
    ASSERT_TRUE(vtlGluUnProject(10 + 300 * (clip[0] / clip[3] + 1) / 2,
                                20 + 200 * (clip[1] / clip[3] + 1) / 2, (clip[2] / clip[3] + 1) / 2, view,
                                projection, viewport.data(), &back.x, &back.y, &back.z));
    EXPECT_NEAR(back.distanceFrom(point), 0, 0.01F);
    const std::array<int, 4> nothing{0, 0, 300, 0};
    EXPECT_FALSE(vtlGluUnProject(1, 1, 0.5F, view, projection, nothing.data(), &back.x, &back.y, &back.z));
    Mat4 flat;
    flat[10] = 0;
    EXPECT_FALSE(vtlGluUnProject(0, 0, 0, view, flat, viewport.data(), &back.x, &back.y, &back.z));
}

INSTANTIATE_TEST_SUITE_P(Contexts, VantrelGLRendererGLTest, Tests::everyGLContext(), Tests::nameOfGLContext);

} // namespace
} // namespace Vantrel
