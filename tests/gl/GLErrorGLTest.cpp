#include "vtl/gl/GLError.h"

#include "vtl/base/SourceLocation.h"

#include "tests/support/ReportCapture.h"

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

TEST(GLErrorTest, NamesEachError) {
    struct Row {
        std::uint32_t error;
        const char* line;
    };
    const auto here = std::source_location::current();
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
    EXPECT_EQ(reportGLErrors(invalidForEver, 0, nullptr, std::source_location::current()), 2U);

    pendingErrors = {GL_INVALID_OPERATION, GL_INVALID_ENUM, GL_INVALID_ENUM, GL_INVALID_OPERATION,
                     GL_INVALID_ENUM};
    reports.clear();
    EXPECT_EQ(reportGLErrors(nextPendingError, 0, nullptr, std::source_location::current()), 4U);
    EXPECT_TRUE(reports.contains(" VTL GL ERROR[3] - INVALID OPERATION 0 - "));
}

} // namespace
} // namespace Vantrel
