#include "vtl/gl/capture/ManagerFrameCapture.h"
#include "vtl/gl/texture/ImageFile.h"
#include "vtl/render/VantrelGLRenderer.h"
#include "vtl/scene/object/WorldList.h"
#include "vtl/scene/shape/WOPrimitiveShape.h"

#include "tests/gl/scene/SceneGLFixture.h"
#include "tests/support/TemporaryFolder.h"

#include <SDL_image.h>
#include <cstring>
#include <filesystem>
#include <gtest/gtest.h>

namespace Vantrel {
namespace {

using Tests::Pixel;
using Tests::PixelPicture;

constexpr int side = Tests::pictureSide;

/** Frames of a world with a cube, by the renderer. */
class RequestedCapturesGLTest : public Tests::SceneGLFixture {
protected:
    void SetUp() override {
        SceneGLFixture::SetUp();
        ManagerFrameCapture::init();
        renderer = VantrelGLRenderer::New();
        cube = WOPrimitiveShape::New(PRIMITIVE_SHAPE_TYPE::psCUBE, {2});
        list.emplace();
        list->push_back(cube.get());
    }
    void TearDown() override {
        list.reset();
        cube.reset();
        renderer.reset();
        ManagerFrameCapture::shutdown();
        SceneGLFixture::TearDown();
    }

    void renderFrame() { renderer->render(&*eye, &*list); }
    /** What the next frame will show. */
    PixelPicture drawnFrame() {
        renderer->renderSingleFrame(&*eye, &*list);
        return picture();
    }
    static PixelPicture pictureOf(const VantrelFrameCapture& frame) {
        PixelPicture shown{side, side, std::vector<Pixel>(std::size_t{side} * side)};
        const auto data = frame.getFrameData();
        for (std::size_t i = 0; i < shown.pixels.size(); ++i) {
            const std::size_t fromTop = 3 * ((side - 1 - i / side) * side + i % side);
            shown.pixels[i] = {data[fromTop + 2], data[fromTop + 1], data[fromTop]};
        }
        return shown;
    }

    std::unique_ptr<VantrelGLRenderer> renderer;
    std::unique_ptr<WO> cube;
    std::optional<WorldList> list;
    Tests::TemporaryFolder folder;
};

TEST_P(RequestedCapturesGLTest, KeepTheFrameThatHandlesThem) {
    renderFrame();
    EXPECT_EQ(ManagerFrameCapture::getFrameCount(), 0U);
    cube->setPosition(0, 2, 1);
    renderer->setCaptureNextFrame(true);
    renderer->renderSelectionDiscardResult(&*eye, &*list);
    EXPECT_TRUE(renderer->isCaptureNextFrame()) << "until a frame is shown";
    renderFrame();
    EXPECT_FALSE(renderer->isCaptureNextFrame());
    cube->setPosition(0, -2, 1);
    renderFrame();
    ASSERT_EQ(ManagerFrameCapture::getFrameCount(), 1U);
    cube->setPosition(0, 2, 1);
    EXPECT_EQ(pictureOf(*ManagerFrameCapture::getFrame(0)).pixels, drawnFrame().pixels);
}

TEST_P(RequestedCapturesGLTest, SaveAndKeepOneFrameWhereBothIsAskedFor) {
    const std::string name = folder.path("frame.png");
    renderer->setCaptureNamedFrame(true, name);
    renderer->setCaptureNextFrame(true);
    EXPECT_TRUE(renderer->isCaptureNamedFrame());
    renderFrame();
    EXPECT_FALSE(renderer->isCaptureNamedFrame());
    renderFrame();
    ManagerFrameCapture::finishSaving();
    EXPECT_EQ(ManagerFrameCapture::getFrameCount(), 1U);
    const SDLSurface decoded(IMG_Load(name.c_str()));
    const SDLSurface saved(SDL_ConvertSurfaceFormat(decoded.get(), SDL_PIXELFORMAT_BGR24, 0));
    ASSERT_NE(saved, nullptr);
    const auto kept = ManagerFrameCapture::getFrame(0)->getFrameData();
    ASSERT_EQ(kept.size(), static_cast<std::size_t>(saved->h) * static_cast<std::size_t>(saved->pitch));
    EXPECT_EQ(std::memcmp(saved->pixels, kept.data(), kept.size()), 0) << "the file shows what was kept";

    std::filesystem::current_path(folder.path(""));
    renderer->setCaptureNamedFrame(true);
    renderFrame();
    std::filesystem::current_path("/");
    EXPECT_TRUE(std::filesystem::exists(folder.path("VANTRELFrameCap_0000.bmp"))) << "the name is used once";
}

INSTANTIATE_TEST_SUITE_P(Contexts, RequestedCapturesGLTest, Tests::everyGLContext(), Tests::nameOfGLContext);

} // namespace
} // namespace Vantrel
