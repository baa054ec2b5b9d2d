#include "vtl/gl/GLError.h"

#include "vtl/base/ReportedObject.h"
#include "vtl/base/SourceLocation.h"

#include "tests/support/GLContextFixture.h"

#include <GL/glew.h>
#include <deque>
#include <gtest/gtest.h>

namespace Vantrel {
namespace {

std::deque<std::uint32_t> pendingErrors;

std::uint32_t nextPendingError() {
    if (pendingErrors.empty()) {
        return 0;
    }
    const std::uint32_t error = pendingErrors.front();
    pendingErrors.pop_front();
    return error;
}

class LabelledObject final : public ReportedObject {
public:
    std::uint32_t getID() const override { return 4000000000U; }
    const std::string& getLabel() const override { return label; }

private:
    std::string label = "Glideslope Antenna";
};

TEST(GLErrorTest, NamesEachError) {
    struct Row {
        std::uint32_t error;
        const char* line;
    };
    const SourceLocation here = SourceLocation::current();
    const std::string location = " - " + locationText(here) + "\n";
    for (const Row& row : {
             Row{1280, " VTL GL ERROR[0] - INVALID ENUM -7"},
             Row{1281, " VTL GL ERROR[0] - INVALID VALUE -7"},
             Row{1282, " VTL GL ERROR[0] - INVALID OPERATION -7"},
             Row{1283, " VTL GL ERROR[0] - GL_STACK_OVERFLOW -7"},
             Row{1284, " VTL GL ERROR[0] - GL_STACK_UNDERFLOW-7"},
             Row{1285, " VTL GL ERROR[0] - GL_OUT_OF_MEMORY -7"},
             Row{1286, " VTL GL ERROR[0] - GL_INVALID_FRAMEBUFFER_OPERATION -7"},
             Row{1287, " VTL GL ERROR[0] - GL_CONTEXT_LOST -7"},
             Row{0xBEEF, " VTL GL ERROR[0] - glGetError returned undefined error 0xbeef"},
         }) {
        Tests::ReportCapture reports;
        pendingErrors = {row.error};
        EXPECT_EQ(reportGLErrors(nextPendingError, -7, nullptr, here), 1U);
        EXPECT_EQ(reports.text(), row.line + location);
    }
}

TEST(GLErrorTest, EndsAfterTheSecondInvalidOperation) {
    Tests::ReportCapture reports;
    const auto invalidForEver = []() -> std::uint32_t { return GL_INVALID_OPERATION; };
    EXPECT_EQ(reportGLErrors(invalidForEver, 0, nullptr, SourceLocation::current()), 2U);

    pendingErrors = {GL_INVALID_OPERATION, GL_INVALID_ENUM, GL_INVALID_ENUM, GL_INVALID_OPERATION,
                     GL_INVALID_ENUM};
    reports.clear();
    EXPECT_EQ(reportGLErrors(nextPendingError, 0, nullptr, SourceLocation::current()), 4U);
    EXPECT_TRUE(reports.contains(" VTL GL ERROR[3] - INVALID OPERATION 0 - "));
}

using GLErrorGLTest = Tests::GLContextFixture;

TEST_P(GLErrorGLTest, TracesAnErrorToItsCallSiteAndObject) {
    const LabelledObject object;
    EXPECT_EQ(checkGLError(1), 0U);
    glEnable(0xFFFF);
    reports.clear();
    EXPECT_EQ(checkGLError(212123, &object), 1U);
    const std::string line = std::to_string(__LINE__ - 1);
    EXPECT_EQ(reports.text(), " VTL GL ERROR[0] - INVALID ENUM 212123 - GLErrorGLTest.cpp:" + line +
                                  "\nGlideslope Antenna 4000000000\n");
    EXPECT_EQ(checkGLError(1), 0U);
}

INSTANTIATE_TEST_SUITE_P(Contexts, GLErrorGLTest, Tests::everyGLContext(), Tests::nameOfGLContext);

} // namespace
} // namespace Vantrel
