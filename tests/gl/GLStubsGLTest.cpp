#include "vtl/gl/GLStubs.h"

#include "vtl/gl/GLEntryPoints.h"

#include "tests/support/GLContextFixture.h"
#include "tests/support/PixelReading.h"

#include <GL/glew.h>
#include <array>
#include <gtest/gtest.h>

namespace Vantrel {
namespace {

using GLStubsGLTest = Tests::GLContextFixture;

struct MissingFunction {
    const char* name;
    void (*takeAway)();
    const char* warning;
    void (*call)();
    const char* answer;
};

const std::array<MissingFunction, 7> missingFunctions{{
    {"glDebugMessageCallback", [] { glDebugMessageCallback = nullptr; }, "",
     [] { glDebugMessageCallback(nullptr, nullptr); }, " stubGLDebugMessageCallback substituted\n"},
    {"glActiveTexture", [] { glActiveTexture = nullptr; },
     "GL WARNING: glActiveTexture is not supported on this hardware...\n   glActiveTexture stubified...\n",
     [] { glActiveTexture(GL_TEXTURE0); }, ""},
    {"glClientActiveTexture", [] { glClientActiveTexture = nullptr; },
     "GL WARNING: glClientActiveTexture is not supported on this hardware...\n"
     "   glClientActiveTexture stubified...\n",
     [] { glClientActiveTexture(GL_TEXTURE0); }, ""},
    {"glDrawRangeElements", [] { glDrawRangeElements = nullptr; },
     "glDrawRangeElements is using stubGLDrawRangeElements as Range is not supported on your hardware...\n",
     [] {}, ""},
    {"glGenerateMipmap", [] { glGenerateMipmap = nullptr; },
     "GL WARNING: glGenerateMipmap is not supported on this hardware...\n"
     "glGenerateMipmap is using stubGLGenerateMipmap as glGenerateMipmap requires OpenGL 3.0, which is not "
     "currently supported on your hardware...\n",
     [] { glGenerateMipmap(GL_TEXTURE_2D); },
     "stub glGenerateMipmap... Update your driver to OpenGL 3.0...\n"},
    {"glDispatchCompute", [] { glDispatchCompute = nullptr; },
     "GL WARNING: glDispatchCompute - OpenGL 4.3 Compute Shaders are not supported on this "
     "hardware/driver... "
     "\n",
     [] { glDispatchCompute(1, 2, 3); },
     "stub glDispatchCompute( 1, 2, 3 ) - compute shaders are not supported...\n"},
    {"glDispatchComputeIndirect", [] { glDispatchComputeIndirect = nullptr; },
     "GL WARNING: OpenGL 4.3 Compute Shaders are not supported on this hardware/driver... \n",
     [] { glDispatchComputeIndirect(-16); }, " stubGLDispatchComputeIndirect -16\n"},
}};

TEST_P(GLStubsGLTest, ReplacesEachMissingFunctionOnce) {
    const std::string present = "glFramebufferRenderbuffer is SUPPORTED...\n";
    for (const MissingFunction& row : missingFunctions) {
        // Each starts from what the driver has.
        loadGLEntryPoints(ManagerOpenGLState::isCoreProfile());
        row.takeAway();
        const bool hasCompute = glDispatchCompute != nullptr;
        const std::string rest = present + (hasCompute ? "glDispatchCompute is SUPPORTED...\n" : "");

        reports.clear();
        stubMissingGLFunctions();
        EXPECT_EQ(reports.text(), row.warning + rest) << row.name;

        reports.clear();
        row.call();
        EXPECT_EQ(reports.text(), row.answer) << row.name;

        reports.clear();
        stubMissingGLFunctions();
        EXPECT_EQ(reports.text(), rest) << row.name;
    }
}

TEST_P(GLStubsGLTest, LooksForRenderbuffersWithoutReplacingThem) {
    glFramebufferRenderbuffer = nullptr;
    reports.clear();
    stubMissingGLFunctions();
    EXPECT_TRUE(
        reports.text().starts_with("GL WARNING: OpenGL 3.0 glFramebufferRenderbuffer not supported on "
                                   "this hardware/driver, may need to use extension... \n"));
    EXPECT_EQ(glFramebufferRenderbuffer, nullptr);
}

INSTANTIATE_TEST_SUITE_P(Contexts, GLStubsGLTest, Tests::everyGLContext(), Tests::nameOfGLContext);

using GLStubsFixedFunctionGLTest = Tests::GLContextFixture;

TEST_P(GLStubsFixedFunctionGLTest, DrawsWithoutDrawRangeElements) {
    constexpr std::array<float, 8> everywhere{-1, -1, 1, -1, 1, 1, -1, 1};
    constexpr std::array<GLubyte, 6> indices{0, 1, 2, 0, 2, 3};
    glDrawRangeElements = nullptr;
    stubMissingGLFunctions();

    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glColor3ub(255, 0, 255);
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(2, GL_FLOAT, 0, everywhere.data());
    glDrawRangeElements(GL_TRIANGLES, 0, 3, indices.size(), GL_UNSIGNED_BYTE, indices.data());

    const auto picture = Tests::readPixels(200, 100);
    EXPECT_EQ(picture.at(20, 80), (Tests::Pixel{255, 0, 255}));
    EXPECT_EQ(picture.at(180, 20), (Tests::Pixel{255, 0, 255}));
}

INSTANTIATE_TEST_SUITE_P(Contexts, GLStubsFixedFunctionGLTest, ::testing::Values(Tests::fixedFunctionContext),
                         Tests::nameOfGLContext);

} // namespace
} // namespace Vantrel
