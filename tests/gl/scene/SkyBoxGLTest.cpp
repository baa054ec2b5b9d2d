#include "vtl/scene/light/WOSkyBox.h"

#include "tests/gl/scene/SceneGLFixture.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace Vantrel {
namespace {

using Tests::Pixel;

constexpr int middle = Tests::pictureSide / 2;

/** Of the squares +Y, +X, -Y, -X, floor, top; in each from left to right, the lower two first. */
constexpr std::size_t quarters = 24;
Pixel colorOf(std::size_t quarter) {
    return {static_cast<std::uint8_t>(40 * (quarter / 4 + 1)), static_cast<std::uint8_t>(quarter % 2 * 255),
            static_cast<std::uint8_t>(quarter / 2 % 2 * 255)};
}

class SkyBoxGLTest : public Tests::SceneGLFixture {
protected:
    void SetUp() override {
        SceneGLFixture::SetUp();
        camera = std::make_unique<CameraStandardEZNav>(nullptr, nullptr);
        camera->setCameraAspectRatio(1);
    }
    void TearDown() override {
        camera.reset();
        SceneGLFixture::TearDown();
    }

    /** A strip whose quarters have their colours, `shift` squares further. */
    std::string strip(const char* name, std::size_t shift = 0) {
        constexpr int side = 8;
        SDL_Surface* const surface =
            SDL_CreateRGBSurfaceWithFormat(0, 12 * side, 2 * side, 24, SDL_PIXELFORMAT_RGB24);
        for (std::size_t i = 0; i < quarters; ++i) {
            const Pixel color = colorOf((i + 4 * shift) % quarters);
            const SDL_Rect quarter{static_cast<int>(i / 4 * 2 + i % 2) * side, i / 2 % 2 == 1 ? 0 : side,
                                   side, side};
            SDL_FillRect(surface, &quarter, SDL_MapRGB(surface->format, color[0], color[1], color[2]));
        }
        const std::string file = folder.path(name);
        SDL_SaveBMP(surface, file.c_str());
        SDL_FreeSurface(surface);
        return file;
    }
    Pixel seenAlong(WO& sky, const Vector& direction) {
        camera->setCameraLookDirection(direction);
        camera->updateCameraMatrices();
        lookThrough(camera->getShaderCamera());
        sky.onUpdate();
        clearPicture();
        sky.render(camera.get());
        return pixelAt(middle, middle);
    }

    Tests::TemporaryFolder folder;
    std::unique_ptr<Camera> camera;
};

TEST_P(SkyBoxGLTest, SurroundsTheCameraWithTheSixSquaresAndTurnsAsItDoes) {
    shine(Vector(0, 0, -1), 0); // which the sky doesn't mind
    const auto sky = WOSkyBox::New(strip("sky.bmp"), &camera);
    EXPECT_EQ(sky->getLabel(), "Skybox");
    EXPECT_TRUE(!sky->cullable && sky->renderOrderType == 1) << "behind the lights, before all else";
    const std::array<Vector, 6> directions{unitY, unitX, unitY * -1, unitX * -1, unitZ * -1, unitZ};
    for (const bool isTurned : {false, true}) {
        for (std::size_t i = 0; i < quarters; ++i) {
            const Vector& face = directions[i / 4];
            const Vector up = i < 16 ? unitZ : unitX * -1; // the side of the square's upper edge
            const Vector d = face + face.crossProduct(up) * (i % 2 == 1 ? 0.5F : -0.5F) +
                             up * (i / 2 % 2 == 1 ? 0.5F : -0.5F);
            EXPECT_EQ(seenAlong(*sky, isTurned ? Vector(d.x, d.z, -d.y) : d), colorOf(i)) << i << isTurned;
        }
        camera->setPosition(5000, -700, 80);
        camera->setHorizontalRotationAxis(unitY);
    }
    const auto& box = dynamic_cast<const MGLSkyBox&>(*sky->getModel());
    EXPECT_FLOAT_EQ(box.getBoxSize(), ManagerOpenGLState::getFarPlane() * 0.575F);
    sky->setBoxSizeFromFarPlane(100000);
    EXPECT_FLOAT_EQ(box.getBoxSize(), 57500);
    camera->setCameraFarClippingPlaneDistance(10001);
    EXPECT_EQ(seenAlong(*sky, unitX), Tests::black) << "beyond the view";
    sky->setBoxSize(10000);
    EXPECT_NE(seenAlong(*sky, unitX), Tests::black);
    EXPECT_EQ(checkGLError(0), 0U);
}

TEST_P(SkyBoxGLTest, ChangesItsImageByKeysAndFollowsAnotherCamera) {
    const std::array<std::string, 2> images{strip("a.bmp"), strip("b.bmp", 1)};
    WOSkyBox sky;
    sky.onCreate(images, &camera, 100);
    SDL_KeyboardEvent key{};
    for (const auto& [symbol, square] :
         {std::pair(SDLK_UP, 2U), std::pair(SDLK_LEFT, 1U), std::pair(SDLK_RIGHT, 2U),
          std::pair(SDLK_DOWN, 1U), std::pair(SDLK_a, 1U)}) {
        key.keysym.sym = symbol;
        sky.onKeyDown(key);
        EXPECT_EQ(seenAlong(sky, Vector(2, -1, 1)), colorOf(4 * square + 3)) << symbol;
    }
    camera = std::make_unique<CameraStandardEZNav>(nullptr, nullptr);
    camera->setPosition(900, 0, 0);
    EXPECT_EQ(seenAlong(sky, Vector(2, -1, 1)), colorOf(7));
    camera.reset();
    sky.onUpdate();
}

INSTANTIATE_TEST_SUITE_P(Contexts, SkyBoxGLTest, Tests::everyGLContext(), Tests::nameOfGLContext);

} // namespace
} // namespace Vantrel
