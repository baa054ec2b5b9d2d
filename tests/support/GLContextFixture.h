#pragma once

#include "vtl/base/ManagerEnvironmentConfiguration.h"
#include "vtl/gl/GLError.h"
#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/gl/ManagerWindowing.h"
#include "vtl/gl/shader/ManagerShader.h"
#include "vtl/gl/texture/ManagerTexture.h"

#include "tests/support/KeyPresses.h"
#include "tests/support/ReportCapture.h"

#include <gtest/gtest.h>
#include <ostream>
#include <string>
#include <vector>

namespace Vantrel::Tests {

/** A context to ask for. */
struct GLContextRow {
    int major;
    int minor;
    const char* profile;

    std::string version() const { return std::to_string(major) + "." + std::to_string(minor); }
    bool isShaderPath() const { return isGLVersion32OrGreater(major, minor); }
    VTL_GL_CONTEXT_PROFILE expectedProfile() const {
        return profile == std::string("core") ? VTL_GL_CONTEXT_PROFILE::CORE
                                              : VTL_GL_CONTEXT_PROFILE::COMPATIBILITY;
    }
};

inline std::ostream& operator<<(std::ostream& out, const GLContextRow& row) {
    return out << row.version() << " " << row.profile;
}

constexpr GLContextRow fixedFunctionContext{2, 1, "compatibility"};

/** Every kind of context that something drawn must work on. */
inline auto everyGLContext() {
    return ::testing::Values(fixedFunctionContext, GLContextRow{3, 2, "core"}, GLContextRow{4, 5, "core"},
                             GLContextRow{4, 5, "compatibility"});
}

/** Those of them that draw with shaders. */
inline auto everyShaderContext() {
    return ::testing::Values(GLContextRow{3, 2, "core"}, GLContextRow{4, 5, "core"},
                             GLContextRow{4, 5, "compatibility"});
}

inline std::string nameOfGLContext(const ::testing::TestParamInfo<GLContextRow>& info) {
    return std::to_string(info.param.major) + "_" + std::to_string(info.param.minor) + "_" +
           info.param.profile;
}

/** Fills the configuration for a small window with that context; `settings` are `{key=value}` and come last.
 */
inline void configureGL(const GLContextRow& row, const std::vector<std::string>& settings = {}) {
    ManagerEnvironmentConfiguration::init();
    ManagerEnvironmentConfiguration::populateFromCommandLine(
        {"{width=200}", "{height=100}", "{glContextVersion=" + row.version() + "}",
         "{glContextProfile=" + std::string(row.profile) + "}",
         "{sharedmultimediapath=" KELDIN_SHARED_DATA "}"});
    ManagerEnvironmentConfiguration::populateFromCommandLine(settings);
}

/** Opens window and context in the order of the viewer. */
inline void startGL(const GLContextRow& row, const std::vector<std::string>& settings = {}) {
    configureGL(row, settings);
    ManagerWindowing::init();
    ManagerOpenGLState::init();
    ManagerShader::init();
}

inline void stopGL() {
    ManagerTexture::shutdown();
    ManagerShader::shutdown();
    ManagerOpenGLState::shutdown();
    ManagerWindowing::shutdown();
    ManagerEnvironmentConfiguration::shutdown();
}

/**
 * A test case with a window of 200 x 100 and the context of its row. A GL error that a case leaves behind
 * fails it.
 *
 *     using FooGLTest = Tests::GLContextFixture;
 *     TEST_P(FooGLTest, ...) { ... }
 *     INSTANTIATE_TEST_SUITE_P(Contexts, FooGLTest, Tests::everyGLContext(), Tests::nameOfGLContext);
 */
class GLContextFixture : public ::testing::TestWithParam<GLContextRow> {
protected:
    void SetUp() override {
        startGL(GetParam());
        ASSERT_TRUE(ManagerWindowing::isWindowExisting()) << reports.text();
    }
    void TearDown() override {
        EXPECT_EQ(checkGLError(0), 0U) << reports.text();
        stopGL();
    }

    ReportCapture reports;
    KeyPresses keys;
};

} // namespace Vantrel::Tests
