#include "vtl/gl/LoadingScreen.h"

#include "tests/support/GLContextFixture.h"
#include "tests/support/GLObjectCount.h"
#include "tests/support/PixelReading.h"

#include <GL/glew.h>
#include <gtest/gtest.h>
#include <optional>

namespace Vantrel {
namespace {

constexpr int width = 200;
constexpr int height = 100;
constexpr Tests::Pixel background{50, 88, 174};
constexpr Tests::Pixel magenta{255, 0, 255};

std::uint8_t channel(float value) {
    return static_cast<std::uint8_t>(value * 255.0F + 0.5F);
}

/** Colour across the square, `u` to the right and `v` upward from 0 to 1; two triangles meet in the diagonal.
 */
Tests::Pixel colorInSquare(float u, float v) {
    return v > u ? Tests::Pixel{channel(v - u), channel(u), 0} : Tests::Pixel{0, channel(v), channel(u - v)};
}

/** None where a pixel is cut by the square's edge. */
std::optional<Tests::Pixel> expectedPixel(int x, int y) {
    const auto inSquare = [](int pixel, int pixels) {
        const float inWindow = 2.0F * (static_cast<float>(pixel) + 0.5F) / static_cast<float>(pixels) - 1.0F;
        return (inWindow + 0.975F) / 1.95F;
    };
    const float u = inSquare(x, width);
    const float v = inSquare(y, height);
    constexpr float edge = 0.01F;
    if (u > edge && u < 1.0F - edge && v > edge && v < 1.0F - edge) {
        return colorInSquare(u, v);
    }
    if (u < -edge || u > 1.0F + edge || v < -edge || v > 1.0F + edge) {
        return background;
    }
    return std::nullopt;
}

class LoadingScreenGLTest : public Tests::GLContextFixture {
protected:
    static void fillWithMagenta() {
        glClearColor(1.0F, 0.0F, 1.0F, 1.0F);
        glClear(GL_COLOR_BUFFER_BIT);
    }
};

TEST_P(LoadingScreenGLTest, ShowsTheSamePictureOnEveryContext) {
    const LoadingScreen screen;
    ASSERT_TRUE(screen.isDrawable());
    screen.drawPicture();
    const auto picture = Tests::readPixels(width, height);
    // Rasterisers round the interpolated colour differently, by at most one step each way.
    constexpr int rounding = 2;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const auto expected = expectedPixel(x, y);
            if (expected) {
                ASSERT_LE(Tests::worstDifference(picture.at(x, y), *expected), rounding) << x << " " << y;
            }
        }
    }
}

TEST_P(LoadingScreenGLTest, GivesBackWhatItTakes) {
    constexpr std::array<GLenum, 3> bindings{GL_CURRENT_PROGRAM, GL_VERTEX_ARRAY_BINDING,
                                             GL_ARRAY_BUFFER_BINDING};
    const Tests::GLObjectCount before = Tests::countGLObjects();
    {
        const LoadingScreen screen;
        screen.drawPicture();
        for (const GLenum binding : bindings) {
            GLint bound = -1;
            glGetIntegerv(binding, &bound);
            EXPECT_EQ(bound, 0) << binding;
        }
        EXPECT_EQ(Tests::countGLObjects() == before, !GetParam().isShaderPath());
    }
    EXPECT_EQ(Tests::countGLObjects(), before);
    if (ManagerOpenGLState::isCompatibilityProfile()) {
        GLint depth = 0;
        glGetIntegerv(GL_PROJECTION_STACK_DEPTH, &depth);
        EXPECT_EQ(depth, 1);
    }
}

TEST_P(LoadingScreenGLTest, IsShown600TimesInAllOnTheFixedFunctionPath) {
    const auto countTriangles = [] {
        GLuint query = 0;
        GLuint triangles = 0;
        glGenQueries(1, &query);
        glBeginQuery(GL_PRIMITIVES_GENERATED, query);
        ManagerWindowing::drawLoadingScreen();
        glEndQuery(GL_PRIMITIVES_GENERATED);
        glGetQueryObjectuiv(query, GL_QUERY_RESULT, &triangles);
        glDeleteQueries(1, &query);
        return triangles;
    };
    static bool isFirstOfTheProcess = true;
    if (!GetParam().isShaderPath() && isFirstOfTheProcess) {
        EXPECT_EQ(countTriangles(), 1200U);
        isFirstOfTheProcess = false;
    }
    fillWithMagenta();
    glClearColor(0.0F, 0.0F, 0.0F, 1.0F);
    EXPECT_EQ(countTriangles(), GetParam().isShaderPath() ? 2U : 0U);
    const Tests::Pixel left = Tests::readPixels(width, height).at(width / 2, height / 2);
    EXPECT_EQ(left, GetParam().isShaderPath() ? (Tests::Pixel{0, 0, 0}) : magenta);
}

TEST_P(LoadingScreenGLTest, DrawsNothingWithoutEntryPoints) {
    glCreateProgram = nullptr;
    fillWithMagenta();
    EXPECT_FALSE(LoadingScreen().isDrawable());
    LoadingScreen().drawPicture();
    ManagerWindowing::drawLoadingScreen();
    EXPECT_EQ(Tests::readPixels(width, height).at(1, 1), magenta);
}

TEST_P(LoadingScreenGLTest, FillsAnEyeWithOneColor) {
    LoadingScreen().drawEyePicture({0.8F, 0.0F, 1.0F});
    const auto picture = Tests::readPixels(width, height);
    EXPECT_EQ(picture.at(0, 0), (Tests::Pixel{204, 0, 255}));
    EXPECT_EQ(picture.at(width - 1, height - 1), (Tests::Pixel{204, 0, 255}));
}

INSTANTIATE_TEST_SUITE_P(Contexts, LoadingScreenGLTest, Tests::everyGLContext(), Tests::nameOfGLContext);

} // namespace
} // namespace Vantrel
