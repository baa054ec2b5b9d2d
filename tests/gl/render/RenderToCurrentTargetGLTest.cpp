#include "vtl/render/RenderToCurrentTarget.h"

#include "vtl/gl/framebuffer/ScopedFrameBuffer.h"
#include "vtl/render/VantrelGLRenderer.h"
#include "vtl/scene/gui/IFaceGUIWidget.h"
#include "vtl/scene/model/MGLNullModel.h"
#include "vtl/scene/object/WorldList.h"
#include "vtl/scene/shape/WOPrimitiveShape.h"

#include "tests/gl/scene/SceneGLFixture.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace Vantrel {
namespace {

using Tests::Pixel;
using Tests::PixelPicture;

constexpr int side = 64;
constexpr Pixel white{255, 255, 255};
constexpr Pixel green{0, 255, 0};

class Widget : public WO, public IFaceGUIWidget {};

class RenderToCurrentTargetGLTest : public Tests::SceneGLFixture {
protected:
    void SetUp() override {
        SceneGLFixture::SetUp();
        ManagerOpenGLState::setAxesVisible(false);
        glClearColor(0, 0, 1, 1);
        renderer = VantrelGLRenderer::New();
        list.emplace();
        target = VantrelFrameBufferObject::New(side, side, 1, true, true, false, false);
        target->clearColor = {0.0F, 1.0F, 0.0F, 1.0F};
        eye->setViewport({0, 0, side, side});
    }
    void TearDown() override {
        target.reset();
        list.reset();
        renderer.reset();
        SceneGLFixture::TearDown();
    }

    std::unique_ptr<WO> cubeAt(const Vector& position) {
        std::unique_ptr<WO> cube = WOPrimitiveShape::New(PRIMITIVE_SHAPE_TYPE::psCUBE, {2});
        cube->setPosition(position);
        list->push_back(cube.get());
        return cube;
    }
    /** What the target shows of it; the view of GL and of the camera is as before afterwards. */
    template <class Render>
    PixelPicture targetPicture(Render render) {
        const ScopedFrameBuffer bound(*target);
        const std::vector<float> view = viewOfGL();
        const Mat4 projection = eye->getProjectionMatrix();
        render();
        EXPECT_EQ(viewOfGL(), view);
        EXPECT_EQ(eye->getProjectionMatrix().m, projection.m);
        EXPECT_EQ(eye->getProjectionType(), Camera::PROJ_MATRIX_PROJ_TYPE::pmptPERSPECTIVE);
        return Tests::readPixels(side, side);
    }
    PixelPicture worldPicture(bool usePerspective, bool updateCamera, bool pause = false) {
        return targetPicture([&] {
            renderToCurrentTarget(*target, *renderer, *list, *eye, pause, true, usePerspective, updateCamera);
        });
    }
    PixelPicture objectPicture(WO& object, bool clear = true, bool pause = false) {
        return targetPicture([&] { renderToCurrentTarget(*target, *renderer, object, *eye, pause, clear); });
    }
    /** Clear colour, viewport and the two matrices, as GL has them. */
    std::vector<float> viewOfGL() const {
        std::vector<float> values(4 + 4 + 32);
        glGetFloatv(GL_COLOR_CLEAR_VALUE, values.data());
        glGetFloatv(GL_VIEWPORT, values.data() + 4);
        if (isShaderPath()) {
            GLint buffer = 0;
            glGetIntegeri_v(GL_UNIFORM_BUFFER_BINDING, GLSLUniformBlockCameraTransforms::bindingPoint,
                            &buffer);
            glBindBuffer(GL_UNIFORM_BUFFER, static_cast<GLuint>(buffer));
            glGetBufferSubData(GL_UNIFORM_BUFFER, 0, 32 * sizeof(float), values.data() + 8);
            glBindBuffer(GL_UNIFORM_BUFFER, 0);
        } else {
            glGetFloatv(GL_MODELVIEW_MATRIX, values.data() + 8);
            glGetFloatv(GL_PROJECTION_MATRIX, values.data() + 24);
        }
        return values;
    }

    std::unique_ptr<VantrelGLRenderer> renderer;
    std::optional<WorldList> list;
    std::unique_ptr<VantrelFrameBufferObject> target;
};

TEST_P(RenderToCurrentTargetGLTest, DrawsAWorldAsTheWindowShowsIt) {
    const auto near = cubeAt(Vector(0, 1, 1));
    const auto far = cubeAt(Vector(9, -1, -1));
    renderer->renderSingleFrame(&*eye, &*list);
    PixelPicture expected = Tests::readPixels(side, side);
    std::ranges::replace(expected.pixels, Pixel{0, 0, 255}, green);
    EXPECT_GT(std::ranges::count(expected.pixels, white), 50);
    EXPECT_EQ(worldPicture(true, true).pixels, expected.pixels);
    const CameraStandardEZNav elsewhere(nullptr, nullptr);
    renderer->loadCamera(elsewhere);
    EXPECT_EQ(worldPicture(true, false).pixels, expected.pixels);
}

TEST_P(RenderToCurrentTargetGLTest, DrawsAWorldWithoutPerspective) {
    const auto near = cubeAt(Vector(0, 5, 0));
    const auto far = cubeAt(Vector(60, -5, 0));
    renderer->renderSingleFrame(&*eye, &*list);
    const PixelPicture shown = worldPicture(false, true);
    // Two cubes of 2 by 2 in a view of 20 by 20.
    EXPECT_NEAR(static_cast<double>(std::ranges::count(shown.pixels, white)), 2 * side * side / 100.0, 20);
    EXPECT_EQ(shown.at(side / 4, side / 2), white);
    EXPECT_EQ(shown.at(3 * side / 4, side / 2), white);
}

TEST_P(RenderToCurrentTargetGLTest, DrawsOneObjectAlone) {
    const auto cube = cubeAt(Vector(0, 1, 1));
    const PixelPicture alone = worldPicture(true, true);
    const auto other = cubeAt(Vector(0, -1, -1));
    reports.clear();
    EXPECT_EQ(objectPicture(*cube).pixels, alone.pixels);
    EXPECT_EQ(reports.text(), "Using Perspective Projection...\n");
    const PixelPicture both = objectPicture(*other, false);
    EXPECT_EQ(std::ranges::count(both.pixels, white), 2 * std::ranges::count(alone.pixels, white))
        << "what was there stays";
}

TEST_P(RenderToCurrentTargetGLTest, DrawsAWidgetWithoutPerspective) {
    Widget widget;
    widget.setModel(std::make_unique<MGLNullModel>(&widget));
    widget.addChild(WOPrimitiveShape::New(PRIMITIVE_SHAPE_TYPE::psCUBE, {2}));
    eye->setOrthographicExtent(4, 4);
    reports.clear();
    const PixelPicture shown = objectPicture(widget);
    EXPECT_EQ(reports.text(), "Using Ortho Projection...;\n");
    EXPECT_NEAR(static_cast<double>(std::ranges::count(shown.pixels, white)), side * side / 4.0, side);
}

TEST_P(RenderToCurrentTargetGLTest, ShowsTheWindowAndWaitsForAKey) {
    const auto cube = cubeAt(Vector(0, 0, 0));
    worldPicture(true, true, true);
    objectPicture(*cube, true, true);
    EXPECT_EQ(keys.count(), 2);
    EXPECT_EQ(reports.count("Vantrel::VantrelFrameBufferObject::renderToCurrentTarget() Rendered To Screen, "
                            "Press ENTER to continue...\n"),
              2U);
}

INSTANTIATE_TEST_SUITE_P(Contexts, RenderToCurrentTargetGLTest, Tests::everyGLContext(),
                         Tests::nameOfGLContext);

} // namespace
} // namespace Vantrel
