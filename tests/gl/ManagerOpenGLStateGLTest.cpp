#include "vtl/gl/ManagerOpenGLState.h"

#include "vtl/gl/ProjectionMatrix.h"
#include "vtl/gl/ScopedDepthTest.h"
#include "vtl/gl/ScopedMatrix.h"
#include "vtl/math/MatrixBuilders.h"

#include "tests/support/GLContextFixture.h"

#include <GL/glew.h>
#include <SDL.h>
#include <gtest/gtest.h>
#include <optional>
#include <sstream>

namespace Vantrel {
namespace {

using Profile = VTL_GL_CONTEXT_PROFILE;

struct MaskRow {
    int mask;
    int major;
    int minor;
    std::optional<Profile> profile;
};

TEST(ManagerOpenGLStateTest, TakesTheProfileFromTheMask) {
    for (const MaskRow& row : {
             MaskRow{2, 2, 1, Profile::COMPATIBILITY},
             MaskRow{2, 4, 5, Profile::COMPATIBILITY},
             MaskRow{1, 3, 1, std::nullopt},
             MaskRow{1, 3, 2, Profile::CORE},
             MaskRow{1, 4, 0, Profile::CORE},
             MaskRow{4, 3, 0, Profile::ES},
             MaskRow{0, 2, 1, std::nullopt},
             MaskRow{3, 4, 5, std::nullopt},
         }) {
        EXPECT_EQ(contextProfileOfMask(row.mask, row.major, row.minor), row.profile)
            << row.mask << " " << row.major << "." << row.minor;
    }
}

TEST(ManagerOpenGLStateTest, PrintsProfiles) {
    std::ostringstream out;
    out << Profile::COMPATIBILITY << " " << Profile::CORE << " " << Profile::ES << " "
        << Profile::UNINITIALIZED;
    EXPECT_EQ(out.str(), "VTL_GL_CONTEXT_PROFILE::COMPATIBILITY VTL_GL_CONTEXT_PROFILE::CORE "
                         "VTL_GL_CONTEXT_PROFILE::ES VTL_GL_CONTEXT_PROFILE::UNINITIALIZED");
    out.str("");
    out << static_cast<Profile>(9);
    EXPECT_TRUE(
        out.str().starts_with("VTL_GL_CONTEXT_PROFILE::  ERROR type not found for 9, GLContextProfile.cpp:"));
    EXPECT_TRUE(out.str().ends_with("\n"));
}

struct VersionRow {
    Profile asked;
    int major;
    int minor;
    Profile stored;
    bool is32;
    bool is40;
};

TEST(ManagerOpenGLStateTest, StoresAContextByHand) {
    for (const VersionRow& row : {
             VersionRow{Profile::CORE, 3, 1, Profile::COMPATIBILITY, false, false},
             VersionRow{Profile::CORE, 3, 2, Profile::CORE, true, false},
             VersionRow{Profile::CORE, 4, 0, Profile::CORE, true, true},
             VersionRow{Profile::ES, 4, 1, Profile::COMPATIBILITY, true, true},
             VersionRow{Profile::UNINITIALIZED, -1, -1, Profile::COMPATIBILITY, false, false},
         }) {
        Tests::ReportCapture reports;
        ManagerOpenGLState::setContextProfile(row.asked, row.major, row.minor);
        EXPECT_EQ(ManagerOpenGLState::getContextProfile(), row.stored);
        EXPECT_EQ(ManagerOpenGLState::isCoreProfile(), row.stored == Profile::CORE);
        EXPECT_EQ(ManagerOpenGLState::isVersion32OrGreater(), row.is32) << row.major << "." << row.minor;
        EXPECT_EQ(ManagerOpenGLState::isVersion40OrGreater(), row.is40) << row.major << "." << row.minor;
        EXPECT_EQ(reports.text().starts_with("WARNING: ManagerOpenGLState.cpp:"),
                  row.stored != Profile::CORE);
        EXPECT_EQ(reports.contains("for earlier versions...   NOTE: The OpenGL Context"),
                  row.stored != Profile::CORE);
    }
    ManagerOpenGLState::shutdown();
}

TEST(ManagerOpenGLStateTest, KnowsNothingBeforeThereIsAContext) {
    Tests::ReportCapture reports;
    EXPECT_EQ(ManagerOpenGLState::getContextProfile(), Profile::UNINITIALIZED);
    EXPECT_FALSE(ManagerOpenGLState::isVersion32OrGreater());
    EXPECT_EQ(ManagerOpenGLState::toString(),
              "GL Major Version is 1, ignoring state query to avoid glew null pointers...\n");
    EXPECT_EQ(reports.text(), "");
    ManagerOpenGLState::init();
    EXPECT_TRUE(reports.text().starts_with("ERROR: ManagerOpenGLState: Window Width or Window Height is "
                                           "0...\nThe aspect ratio may divide by zero...\n"));
    EXPECT_EQ(ManagerOpenGLState::getMajorVersion(), -1);
}

TEST(ManagerOpenGLStateTest, StartsCleanAfterShutdown) {
    ManagerOpenGLState::setNearPlane(2.0F);
    ManagerOpenGLState::setFrustumCullingEnabled(false);
    ManagerOpenGLState::pushDepthTest(false);
    ManagerOpenGLState::shutdown();
    EXPECT_EQ(ManagerOpenGLState::getNearPlane(), 0.1F);
    EXPECT_TRUE(ManagerOpenGLState::isFrustumCullingEnabled());
    Tests::ReportCapture reports;
    ManagerOpenGLState::popDepthTest();
    EXPECT_EQ(reports.text(), "Error: Depth Test Stack empty, not popping.\n");
}

class ManagerOpenGLStateGLTest : public Tests::GLContextFixture {
protected:
    static std::array<float, 16> projectionMatrix() {
        std::array<float, 16> matrix{};
        glGetFloatv(GL_PROJECTION_MATRIX, matrix.data());
        return matrix;
    }
};

TEST_P(ManagerOpenGLStateGLTest, KnowsWhatContextItGot) {
    const Tests::GLContextRow& row = GetParam();
    EXPECT_EQ(ManagerOpenGLState::getMajorVersion(), row.major);
    EXPECT_EQ(ManagerOpenGLState::getMinorVersion(), row.minor);
    EXPECT_EQ(ManagerOpenGLState::getContextProfile(), row.expectedProfile());
    EXPECT_EQ(ManagerOpenGLState::isVersion32OrGreater(), row.isShaderPath());
    EXPECT_TRUE(ManagerOpenGLState::areFramebufferObjectsSupported());
    EXPECT_GE(ManagerOpenGLState::getCapabilities().maxTextureSize, 2048);

    EXPECT_TRUE(
        reports.contains("Unsupported functions stubified.\nGraphics driver supports glGetString()...\n"
                         "ManagerOpenGLState GL_MAX_TEXTURE_SIZE is "));
    std::ostringstream heading;
    heading << "ManagerOpenGLState::toString():\nCurrent OpenGL Context Information:\n"
            << "   Current Context GL Version    : " << row.version() << "\n"
            << "   Current OpenGL Context Profile: " << row.expectedProfile() << "\nOpenGL VENDOR '"
            << reinterpret_cast<const char*>(glGetString(GL_VENDOR)) << "'...\n";
    EXPECT_TRUE(ManagerOpenGLState::toString().starts_with(heading.str()));
    EXPECT_NE(ManagerOpenGLState::toString().find("\nOpenGL SHADER LANG VERSION [1] '"), std::string::npos);
    EXPECT_FALSE(reports.contains("VTL GL ERROR"));
}

TEST_P(ManagerOpenGLStateGLTest, SetsTheStartState) {
    std::array<float, 4> clearColor{};
    glGetFloatv(GL_COLOR_CLEAR_VALUE, clearColor.data());
    EXPECT_FLOAT_EQ(clearColor[0], 0.195489F);
    EXPECT_FLOAT_EQ(clearColor[2], 0.684210F);
    GLint blendTarget = 0;
    glGetIntegerv(GL_BLEND_DST_RGB, &blendTarget);
    EXPECT_EQ(blendTarget, GL_ONE_MINUS_SRC_ALPHA);
    EXPECT_TRUE(glIsEnabled(GL_DEPTH_TEST));
    EXPECT_TRUE(glIsEnabled(GL_BLEND));
    if (!ManagerOpenGLState::isCompatibilityProfile()) {
        return;
    }
    GLint matrixMode = 0;
    glGetIntegerv(GL_MATRIX_MODE, &matrixMode);
    EXPECT_EQ(matrixMode, GL_MODELVIEW);
    Mat4 expected;
    if (!GetParam().isShaderPath()) {
        buildPerspective(65.0F, 2.0F, 0.1F, 1000.0F, expected);
    }
    for (std::size_t i = 0; i < 16; ++i) {
        EXPECT_FLOAT_EQ(projectionMatrix()[i], expected[i]) << i;
    }
}

TEST_P(ManagerOpenGLStateGLTest, StacksDepthTests) {
    glDisable(GL_DEPTH_TEST);
    ManagerOpenGLState::popDepthTest();
    EXPECT_FALSE(glIsEnabled(GL_DEPTH_TEST));
    {
        const ScopedDepthTest off(false);
        {
            const ScopedDepthTest on(true);
            EXPECT_TRUE(glIsEnabled(GL_DEPTH_TEST));
        }
        EXPECT_FALSE(glIsEnabled(GL_DEPTH_TEST));
    }
    EXPECT_TRUE(glIsEnabled(GL_DEPTH_TEST));
}

TEST_P(ManagerOpenGLStateGLTest, RestoresTheStateThatObjectsStartFrom) {
    ManagerOpenGLState::setBlendEnabled(false);
    ManagerOpenGLState::setDepthTestEnabled(false);
    ManagerOpenGLState::restorePerObjectState();
    EXPECT_FALSE(glIsEnabled(GL_BLEND));
    EXPECT_FALSE(glIsEnabled(GL_DEPTH_TEST));
    if (!ManagerOpenGLState::isCompatibilityProfile()) {
        return;
    }
    constexpr std::array<GLenum, 5> leftOn{GL_TEXTURE_2D, GL_TEXTURE_3D, GL_FOG, GL_LIGHTING,
                                           GL_COLOR_MATERIAL};
    for (const GLenum left : leftOn) {
        glEnable(left);
    }
    ManagerOpenGLState::restorePerObjectState();
    for (const GLenum left : leftOn) {
        EXPECT_FALSE(glIsEnabled(left)) << left;
    }
    ManagerOpenGLState::setLightCountSource([]() -> std::size_t { return 1; });
    ManagerOpenGLState::restorePerObjectState();
    EXPECT_TRUE(glIsEnabled(GL_LIGHTING));
    EXPECT_TRUE(glIsEnabled(GL_COLOR_MATERIAL));
    ManagerOpenGLState::setColorMaterialEnabled(false);
    ManagerOpenGLState::restorePerObjectState();
    EXPECT_TRUE(glIsEnabled(GL_LIGHTING));
    EXPECT_FALSE(glIsEnabled(GL_COLOR_MATERIAL));
}

TEST_P(ManagerOpenGLStateGLTest, LoadsAParallelProjectionWhereThereIsFixedFunction) {
    if (!ManagerOpenGLState::isCompatibilityProfile()) {
        loadOrthographic2D(0.0F, 1.0F, 0.0F, 1.0F);
        return;
    }
    const auto before = projectionMatrix();
    {
        const ScopedMatrix projection(GL_PROJECTION);
        glLoadIdentity();
        loadOrthographic2D(0.0F, 4.0F, 0.0F, 2.0F);
        EXPECT_FLOAT_EQ(projectionMatrix()[0], 0.5F);
        EXPECT_FLOAT_EQ(projectionMatrix()[10], -1.0F);
        EXPECT_FLOAT_EQ(projectionMatrix()[12], -1.0F);
    }
    EXPECT_EQ(projectionMatrix(), before);
}

TEST_P(ManagerOpenGLStateGLTest, TakesAnUnknownContextForCompatibility) {
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, 0);
    reports.clear();
    ManagerOpenGLState::reInitOpenGLState();
    EXPECT_TRUE(reports.text().starts_with("WARNING: ManagerOpenGLState.cpp:"));
    EXPECT_TRUE(
        reports.contains("\n ManagerOpenGLState::reInitOpenGLState() has been called but\nSDL Reports the "
                         "created GL Context is "
                         "invalid (ie, not COMPATIBILITY, CORE, or ES)...\nPress ENTER to continue...\n"));
    EXPECT_EQ(ManagerOpenGLState::getContextProfile(), Profile::COMPATIBILITY);
    EXPECT_EQ(keys.count(), 0);
    // A core context has no matrices and says so.
    while (glGetError() != GL_NO_ERROR) {
    }
}

INSTANTIATE_TEST_SUITE_P(Contexts, ManagerOpenGLStateGLTest, Tests::everyGLContext(), Tests::nameOfGLContext);

} // namespace
} // namespace Vantrel
