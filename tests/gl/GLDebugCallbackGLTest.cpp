#include "vtl/gl/GLDebugCallback.h"

#include "vtl/gl/GLStubs.h"

#include "tests/support/GLContextFixture.h"

#include <gtest/gtest.h>
#include <string>

namespace Vantrel {
namespace {

constexpr GLDebugMessage known{.source = GL_DEBUG_SOURCE_APPLICATION,
                               .type = GL_DEBUG_TYPE_MARKER,
                               .id = 7,
                               .severity = GL_DEBUG_SEVERITY_NOTIFICATION,
                               .text = "Runway rebuilt"};

TEST(GLDebugCallbackTest, ReportsAMessageLineByLine) {
    EXPECT_EQ(toString(known), "---------------------OpenGL Debug Callback Event Info------------\n"
                               "GL_DEBUG_SEVERITY_: NOTIFICATION:\n"
                               "GL_DEBUG_TYPE_    : MARKER\n"
                               "GL_DEBUG_SOURCE_  : APPLICATION\n"
                               "\n"
                               "id: 7\n"
                               "MESSAGE:\nRunway rebuilt\n"
                               "-----------------------------------\n");
}

TEST(GLDebugCallbackTest, TellsUnknownCodesByNumber) {
    const std::string text =
        toString({.source = 0, .type = 4096, .id = 0, .severity = 0xFFFFFFFF, .text = ""});
    EXPECT_NE(text.find("GL_DEBUG_SEVERITY_: Unknown GL_DEBUG_SEVERITY_ Level '4294967295 (0xffffffff)'\n"),
              std::string::npos);
    EXPECT_NE(text.find("GL_DEBUG_TYPE_    : Unknown GL_DEBUG_TYPE_ Error '4096 (0x1000)'\n"),
              std::string::npos);
    EXPECT_NE(text.find("GL_DEBUG_SOURCE_  : Unknown GL_DEBUG_SOURCE_ Origin '0 (0x0)'\n"),
              std::string::npos);
}

TEST(GLDebugCallbackTest, DropsIdsThatTellNothingAndWaitsOnlyForOthers) {
    const Tests::KeyPresses keys;
    Tests::ReportCapture reports;
    ManagerOpenGLState::setDebugCallbackHaltsOnEachMessage(true);
    for (const GLuint id : {102U, 2000U, 131076U, 131169U, 131184U, 131185U, 131204U, 131222U}) {
        reportGLDebugMessage({.source = 0, .type = 0, .id = id, .severity = 0, .text = "dropped"});
    }
    EXPECT_EQ(reports.text(), "");
    EXPECT_EQ(keys.count(), 0);

    reportGLDebugMessage(known);
    EXPECT_TRUE(
        reports.text().starts_with(toString(known) + "Press ENTER to continue...GLDebugCallback.cpp:"));
    EXPECT_EQ(keys.count(), 1);
    ManagerOpenGLState::shutdown();
}

class GLDebugCallbackGLTest : public Tests::GLContextFixture {
protected:
    void SetUp() override {
        Tests::startGL(GetParam(), {"{glDebugMessageCallbackIsEnabled=1}",
                                    "{gldebugmessagecallbackisenabledhaltoneachmessage=0}"});
        ASSERT_TRUE(isGLDebugMessageCallbackReal());
        reports.clear();
    }

    static void insertMessage(GLuint id, const char* text) {
        glDebugMessageInsert(GL_DEBUG_SOURCE_APPLICATION, GL_DEBUG_TYPE_MARKER, id,
                             GL_DEBUG_SEVERITY_NOTIFICATION, -1, text);
    }
};

TEST_P(GLDebugCallbackGLTest, ReportsInsideTheCallThatProvokesIt) {
    insertMessage(known.id, "Runway rebuilt");
    EXPECT_EQ(reports.text(), toString(known));
    insertMessage(131185, "buffer placed");
    EXPECT_EQ(reports.text(), toString(known));

    reports.clear();
    glEnable(0xFFFF);
    EXPECT_TRUE(reports.contains("GL_DEBUG_TYPE_    : ERROR\nGL_DEBUG_SOURCE_  : API\n"));
    EXPECT_EQ(checkGLError(0), 1U);
    EXPECT_EQ(keys.count(), 0);
}

TEST_P(GLDebugCallbackGLTest, IsSilentWhenDisabled) {
    installDebugCallback(false);
    insertMessage(known.id, "Runway rebuilt");
    EXPECT_EQ(reports.text(), "");
}

INSTANTIATE_TEST_SUITE_P(Contexts, GLDebugCallbackGLTest, Tests::everyGLContext(), Tests::nameOfGLContext);

} // namespace
} // namespace Vantrel
