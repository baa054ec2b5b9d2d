#include "vtl/gl/ManagerWindowing.h"

#include "vtl/base/TickSource.h"
#include "vtl/gl/GLEntryPoints.h"
#include "vtl/gl/GLHandle.h"
#include "vtl/gl/LoadingScreen.h"
#include "vtl/gl/ProjectionMatrix.h"
#include "vtl/gl/WindowIcon.h"

#include "tests/support/GLContextFixture.h"

#include <GL/glew.h>
#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <optional>

namespace Vantrel {
namespace {

/** Sets an environment variable while it lives. */
class ScopedEnvironment {
public:
    ScopedEnvironment(const char* variable, const char* value) : name(variable) {
        if (const char* const old = std::getenv(name)) {
            before = old;
        }
        ::setenv(name, value, 1);
    }
    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;
    ~ScopedEnvironment() { before ? ::setenv(name, before->c_str(), 1) : ::unsetenv(name); }

private:
    const char* name;
    std::optional<std::string> before;
};

class ManagerWindowingTest : public ::testing::Test {
protected:
    void TearDown() override { Tests::stopGL(); }

    /** Nothing that a frame calls may need a context. */
    void expectSafeWithoutContext() {
        EXPECT_FALSE(ManagerWindowing::isWindowExisting());
        EXPECT_EQ(ManagerWindowing::getContextGeneration(), 0U);
        reports.clear();
        ManagerWindowing::drawLoadingScreen();
        EXPECT_EQ(reports.text(), "ManagerWindowing::windowExists is false\n");
        EXPECT_FALSE(ManagerWindowing::resize(640, 480));
        EXPECT_EQ(ManagerWindowing::getWindowWidth(), 640);
        ManagerWindowing::setWindowTitle("title");
        EXPECT_NE(ManagerWindowing::toString().find("Window Width:640\n"), std::string::npos);
        ManagerOpenGLState::init();
        ManagerOpenGLState::restorePerObjectState();
        ManagerOpenGLState::pushDepthTest(false);
        ManagerOpenGLState::popDepthTest();
        EXPECT_FALSE(ManagerOpenGLState::areFramebufferObjectsSupported());
        EXPECT_FALSE(ManagerOpenGLState::isVersion32OrGreater());
        loadPerspective(65.0F, 1.0F, 0.1F, 1000.0F);
        loadOrthographic2D(0.0F, 1.0F, 0.0F, 1.0F);
        EXPECT_FALSE(GLBuffer::create());
        EXPECT_FALSE(LoadingScreen().isDrawable());
        glGenerateMipmap(GL_TEXTURE_2D);
        EXPECT_LE(checkGLError(0), 2U);
    }

    Tests::ReportCapture reports;
    Tests::KeyPresses keys;
};

TEST_F(ManagerWindowingTest, IsSafeBeforeTheStart) {
    expectSafeWithoutContext();
}

TEST_F(ManagerWindowingTest, MakesNoWindowInWindowlessMode) {
    Tests::startGL(Tests::fixedFunctionContext, {"{createwindow=0}"});
    EXPECT_TRUE(reports.text().find("Initialized SDL...\n") != std::string::npos);
    EXPECT_EQ(ManagerWindowing::getWindow(), nullptr);
    EXPECT_EQ(ManagerWindowing::getWindowWidth(), 200);
    expectSafeWithoutContext();
    EXPECT_EQ(keys.count(), 0);
}

TEST_F(ManagerWindowingTest, GoesOnWithoutAWindowThatCannotBeMade) {
    const ScopedEnvironment driver("SDL_VIDEODRIVER", "dummy");
    Tests::startGL(Tests::fixedFunctionContext);
    EXPECT_TRUE(
        reports.contains("\nERROR ManagerWindowing::init(): Failed to create SDL 2.0 Window...\nCannot "
                         "create OpenGL Context, returning from ManagerWindows::init early... SDL Error "
                         "is: '"));
    EXPECT_FALSE(reports.contains("SDL Error is: ''"));
    EXPECT_EQ(ManagerWindowing::getWindow(), nullptr);
    expectSafeWithoutContext();
    EXPECT_EQ(keys.count(), 0);
}

TEST_F(ManagerWindowingTest, GoesOnWithoutSDL) {
    const ScopedEnvironment driver("SDL_VIDEODRIVER", "no such driver");
    Tests::startGL(Tests::fixedFunctionContext);
    EXPECT_TRUE(reports.contains("ManagerWindowing::init(): Initialization SDL_ERROR: '"));
    EXPECT_TRUE(reports.contains("No display found. SDL Reports \""));
    expectSafeWithoutContext();
}

TEST_F(ManagerWindowingTest, OpensItsWindowWithoutSound) {
    const ScopedEnvironment driver("SDL_AUDIODRIVER", "no such driver");
    Tests::startGL({4, 5, "core"});
    EXPECT_TRUE(reports.contains("ManagerWindowing::init(): Initialization SDL_ERROR: '"));
    EXPECT_TRUE(ManagerWindowing::isWindowExisting());
    EXPECT_TRUE(ManagerOpenGLState::isCoreProfile());
    EXPECT_EQ(checkGLError(0), 0U);
}

TEST_F(ManagerWindowingTest, GoesOnWithoutAContextThatCannotBeMade) {
    Tests::startGL({9, 9, "core"});
    EXPECT_TRUE(
        reports.contains("ERROR ManagerWindowing::init(): Failed to create OpenGL Context Window: '"));
    EXPECT_TRUE(
        reports.contains("'\nPausing... (remove me)\n\nGL Major Version is 1, ignoring state query to "
                         "avoid glew null pointers...\n\nWARNING: ManagerOpenGLState.cpp:"));
    EXPECT_EQ(keys.count(), 1);
    EXPECT_EQ(ManagerOpenGLState::getMajorVersion(), -1);
    EXPECT_TRUE(ManagerOpenGLState::isCompatibilityProfile());
    expectSafeWithoutContext();
}

struct StereoRow {
    const char* usestereo;
    const char* stereomode;
    bool isStereo;
    bool isVertical;
    bool isHorizontal;
};

TEST_F(ManagerWindowingTest, ReadsTheFormOfStereo) {
    for (const StereoRow& row : {
             StereoRow{"0", "full", false, false, false},
             StereoRow{"0", "splitvertical", false, true, false},
             StereoRow{"1", "splitvertical", true, true, false},
             StereoRow{"yes", "splithorizontal", true, false, true},
             StereoRow{"1", "full", true, false, false},
         }) {
        reports.clear();
        Tests::startGL(Tests::fixedFunctionContext, {std::string("{usestereo=") + row.usestereo + "}",
                                                     std::string("{stereomode=") + row.stereomode + "}"});
        EXPECT_EQ(ManagerWindowing::isStereoEnabled(), row.isStereo);
        EXPECT_EQ(ManagerWindowing::isSplitVertical(), row.isVertical);
        EXPECT_EQ(ManagerWindowing::isSplitHorizontal(), row.isHorizontal);
        EXPECT_TRUE(
            reports.contains("Stereoscopic Rendering Enabled: " + std::to_string(row.isStereo) + "\n"));
        if (row.isStereo) {
            ManagerWindowing::drawLoadingScreen();
        }
        // A driver without buffers for two eyes refuses the window or each of the buffers.
        const bool needsTwoBuffers = row.isStereo && !row.isVertical && !row.isHorizontal;
        EXPECT_TRUE(needsTwoBuffers || ManagerWindowing::isWindowExisting());
        EXPECT_LE(checkGLError(0), needsTwoBuffers ? 1U : 0U);
        Tests::stopGL();
    }
}

struct RequestRow {
    Tests::GLContextRow context;
    const char* requested;
    const char* created;
    GLboolean isExperimental;
};

TEST_F(ManagerWindowingTest, HonoursTheProfileFrom32On) {
    for (const RequestRow& row : {
             RequestRow{{3, 1, "core"}, "CORE", "COMPATIBILITY", GL_FALSE},
             RequestRow{{3, 2, "core"}, "CORE", "CORE", GL_TRUE},
             RequestRow{{4, 0, "core"}, "CORE", "CORE", GL_TRUE},
             RequestRow{{4, 0, "CORE"}, "COMPATIBILITY", "COMPATIBILITY", GL_FALSE},
         }) {
        reports.clear();
        Tests::startGL(row.context);
        EXPECT_TRUE(reports.contains(
            "Attempted to create OpenGL Context Version " + row.context.version() +
            "\n   OpenGL Context Profile requested in .conf file is " + row.requested +
            "\n   SDL Reports creation of OpenGL Context: SDL_GL_CONTEXT_PROFILE_" + row.created + "\n"))
            << reports.text();
        EXPECT_EQ(glewExperimental, row.isExperimental);
        Tests::stopGL();
    }
}

TEST_F(ManagerWindowingTest, RaisesAnEmptySize) {
    Tests::startGL(Tests::fixedFunctionContext, {"{width=0}", "{height=-5}"});
    EXPECT_EQ(ManagerWindowing::getWindowWidth(), 1);
    EXPECT_EQ(ManagerWindowing::getRenderTargetHeight(), 1);
    int width = 0;
    SDL_GetWindowSize(ManagerWindowing::getWindow(), &width, nullptr);
    EXPECT_EQ(width, 1);
}

TEST_F(ManagerWindowingTest, TheClockIsTheWindowSystems) {
    Tests::startGL(Tests::fixedFunctionContext);
    setTickSource([] { return 0U; });
    Tests::stopGL();
    Tests::startGL(Tests::fixedFunctionContext);
    EXPECT_LE(SDL_GetTicks() - currentTick(), 1000U);
    SDL_Delay(2);
    EXPECT_GT(currentTick(), 0U);
    Tests::stopGL();
}

TEST_F(ManagerWindowingTest, TellsAPersonThatGLIsMissing) {
    Tests::configureGL(Tests::fixedFunctionContext);
    reportMissingGLEntryPoints();
    EXPECT_EQ(keys.count(), 1);
    Tests::configureGL(Tests::fixedFunctionContext, {"{createwindow=0}"});
    reports.clear();
    reportMissingGLEntryPoints();
    EXPECT_EQ(keys.count(), 1);
    EXPECT_EQ(
        reports.text(),
        "\n\nWARNING: GLEW did not successfully initialize: Any opengl extensions calls will crash your "
        "program! Press Enter to continue execution.\nVANTREL Environment Configuration createwindow is "
        "zero.\nIn windowless-mode, GLEW will fail to initialize...\nSkipping interactive acknowledgment "
        "of GLEW init failure...\n\n\n");
}

TEST(WindowIconTest, ShowsAMastUnderARoundedSky) {
    const auto pixels = windowIconPixels();
    EXPECT_EQ(pixels.front(), 0U);
    EXPECT_EQ(pixels.back(), 0U);
    for (const std::uint32_t color : {0xF2F2F2FFU, 0xE2402BFFU, 0xF5D142FFU, 0x4C7F3AFFU}) {
        EXPECT_GT(std::count(pixels.begin(), pixels.end(), color), 10) << std::hex << color;
    }
}

class ManagerWindowingGLTest : public Tests::GLContextFixture {
protected:
    static std::array<GLint, 4> viewport() {
        std::array<GLint, 4> answer{};
        glGetIntegerv(GL_VIEWPORT, answer.data());
        return answer;
    }
};

TEST_P(ManagerWindowingGLTest, ReportsTheStart) {
    std::size_t position = 0;
    for (const char* const step : {
             "Initialized SDL...\n",
             "Stereoscopic Rendering Enabled: 0\nCreating Window...\nWindow successfully "
             "created...\nCreating "
             "OpenGL Context...\nSuccessfully created OpenGL Context. SDL reports instantiated version is ",
             "Init of GLEW was successful...\nOpenGL Context successfully created...\nSDL_Error reports: '",
             "Making OpenGL Context the current Context...\nSDL_Error reports: '",
             "SDL_VIDEO_MINIMIZE_ON_FOCUS_LOSS set to 0...\n",
             "ManagerWindowing has been initiailized...\n",
         }) {
        position = reports.text().find(step, position);
        ASSERT_NE(position, std::string::npos) << step << reports.text();
    }
    EXPECT_STREQ(SDL_GetWindowTitle(ManagerWindowing::getWindow()), "VANTREL Engine Module...");
    EXPECT_EQ(keys.count(), 0);
}

TEST_P(ManagerWindowingGLTest, ReportsAttributesAndDisplays) {
    const std::string report = ManagerWindowing::toString();
    EXPECT_TRUE(report.starts_with("ManagerWindowing::toString() Immediately before SDL_GL_Attributes... "
                                   "SDL_Error reports: ''\nSDL_GL_Attributes:\n"
                                   "SDL_GL_RED_SIZE(successful query, &value):0, 8 SDL_GetError: ''...\n"))
        << report;
    EXPECT_NE(
        report.find("SDL_Display_Attributes:\n\nWindow Width:200\nWindow Height:100\nMax Window Width:1920\n"
                    "Max Window Height:1200\nSDL_GetNumVideoDisplays:1\nDisplay0: Width x Height is "),
        std::string::npos)
        << report;
    EXPECT_NE(report.find(" bpp, \"SDL_PIXELFORMAT_"), std::string::npos) << report;
}

TEST_P(ManagerWindowingGLTest, ResizesToSizesWithArea) {
    EXPECT_FALSE(ManagerWindowing::resize(0, 100));
    EXPECT_FALSE(ManagerWindowing::resize(100, -1));
    EXPECT_EQ(ManagerWindowing::getWindowWidth(), 200);

    reports.clear();
    EXPECT_TRUE(ManagerWindowing::resize(160, 90));
    EXPECT_EQ(ManagerWindowing::getWindowHeight(), 90);
    EXPECT_EQ(viewport(), (std::array<GLint, 4>{0, 0, 160, 90}));
    EXPECT_TRUE(reports.contains("Unsupported functions stubified.\n"));
}

TEST_P(ManagerWindowingGLTest, StartsAgainWithAnotherContext) {
    const std::uint32_t generation = ManagerWindowing::getContextGeneration();
    Tests::stopGL();
    EXPECT_EQ(ManagerWindowing::getContextGeneration(), 0U);
    EXPECT_EQ(ManagerOpenGLState::getMajorVersion(), -1);
    Tests::startGL({3, 3, "core"});
    EXPECT_EQ(ManagerWindowing::getContextGeneration(), generation + 1);
    EXPECT_TRUE(ManagerOpenGLState::isCoreProfile());
    Tests::stopGL();
    Tests::startGL(GetParam());
    EXPECT_EQ(ManagerOpenGLState::getContextProfile(), GetParam().expectedProfile());
    EXPECT_EQ(ManagerOpenGLState::getMajorVersion(), GetParam().major);
}

TEST_P(ManagerWindowingGLTest, TakesGlewWithoutAGlxDisplayForSuccess) {
    EXPECT_TRUE(isGLUsable(GLEW_OK));
    EXPECT_TRUE(isGLUsable(GLEW_ERROR_NO_GLX_DISPLAY));
    EXPECT_FALSE(isGLUsable(GLEW_ERROR_NO_GL_VERSION));
    glCreateProgram = nullptr;
    EXPECT_FALSE(isGLUsable(GLEW_ERROR_NO_GLX_DISPLAY));
}

INSTANTIATE_TEST_SUITE_P(Contexts, ManagerWindowingGLTest, Tests::everyGLContext(), Tests::nameOfGLContext);

} // namespace
} // namespace Vantrel
