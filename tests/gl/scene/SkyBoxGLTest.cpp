#include "vtl/scene/light/WOSkyBox.h"

#include "tests/gl/scene/SceneGLFixture.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace Vantrel {
namespace {

using Tests::Pixel;

constexpr int middle = Tests::pictureSide / 2;

/** In the order of the strip: +Y, +X, -Y, -X, floor, top. */
constexpr std::array<Pixel, 6> squares{
    {{255, 0, 0}, {0, 255, 0}, {0, 0, 255}, {255, 255, 0}, {0, 255, 255}, {255, 0, 255}}};

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

    /** A strip whose squares have these colours, `shift` places further. */
    std::string strip(const char* name, std::size_t shift = 0) {
        constexpr int side = 16;
        SDL_Surface* const surface =
            SDL_CreateRGBSurfaceWithFormat(0, 6 * side, side, 24, SDL_PIXELFORMAT_RGB24);
        for (std::size_t i = 0; i < squares.size(); ++i) {
            const Pixel& color = squares[(i + shift) % squares.size()];
            const SDL_Rect square{static_cast<int>(i) * side, 0, side, side};
            SDL_FillRect(surface, &square, SDL_MapRGB(surface->format, color[0], color[1], color[2]));
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

TEST_P(SkyBoxGLTest, SurroundsTheCameraWithTheSixSquares) {
    shine(Vector(0, 0, -1), 0); // which the sky doesn't mind
    const auto sky = WOSkyBox::New(strip("sky.bmp"), &camera);
    EXPECT_EQ(sky->getLabel(), "Skybox");
    const std::array<Vector, 6> directions{unitY, unitX, unitY * -1, unitX * -1, unitZ * -1, unitZ};
    for (const Vector& place : {Vector(), Vector(5000, -700, 80)}) {
        camera->setPosition(place);
        for (std::size_t i = 0; i < directions.size(); ++i) {
            EXPECT_EQ(seenAlong(*sky, directions[i]), squares[i]) << i;
        }
    }
    sky->setBoxSizeFromFarPlane(2);
    EXPECT_EQ(seenAlong(*sky, unitX), squares[1]) << "smaller, and still around the camera";
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
        EXPECT_EQ(seenAlong(sky, unitX), squares[square]) << symbol;
    }
    camera = std::make_unique<CameraStandardEZNav>(nullptr, nullptr);
    camera->setPosition(900, 0, 0);
    EXPECT_EQ(seenAlong(sky, unitX), squares[1]);
    camera->setHorizontalRotationAxis(unitY);
    sky.onUpdate();
    EXPECT_EQ(sky.getNormalDirection(), unitY) << "upright as the camera turns";
    EXPECT_EQ(sky.getLookDirection().crossProduct(sky.getModel()->getYAxis()), unitY);
    camera.reset();
    sky.onUpdate();
}

INSTANTIATE_TEST_SUITE_P(Contexts, SkyBoxGLTest, Tests::everyGLContext(), Tests::nameOfGLContext);

} // namespace
} // namespace Vantrel
