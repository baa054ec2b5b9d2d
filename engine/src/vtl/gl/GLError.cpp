#include "vtl/gl/GLError.h"

#include "vtl/base/Report.h"
#include "vtl/base/ReportedObject.h"
#include "vtl/base/SourceLocation.h"

#include <GL/glew.h>
#include <algorithm>
#include <array>

namespace Vantrel {
namespace {

struct ErrorText {
    GLenum error;
    const char* text;
};

constexpr std::array<ErrorText, 8> errorTexts{{
    {GL_INVALID_ENUM, "] - INVALID ENUM "},
    {GL_INVALID_VALUE, "] - INVALID VALUE "},
    {GL_INVALID_OPERATION, "] - INVALID OPERATION "},
    {GL_STACK_OVERFLOW, "] - GL_STACK_OVERFLOW "},
    {GL_STACK_UNDERFLOW, "] - GL_STACK_UNDERFLOW"},
    {GL_OUT_OF_MEMORY, "] - GL_OUT_OF_MEMORY "},
    {GL_INVALID_FRAMEBUFFER_OPERATION, "] - GL_INVALID_FRAMEBUFFER_OPERATION "},
    {GL_CONTEXT_LOST, "] - GL_CONTEXT_LOST "},
}};

void reportError(std::uint32_t index, GLenum error, std::int32_t code, const ReportedObject* object,
                 SourceLocation where) {
    Report out;
    out << " VTL GL ERROR[" << index;
    const auto* const known = std::find_if(errorTexts.begin(), errorTexts.end(),
                                           [error](const ErrorText& entry) { return entry.error == error; });
    if (known != errorTexts.end()) {
        out << known->text << code;
    } else {
        out << "] - glGetError returned undefined error 0x" << Hexadecimal{error};
    }
    out << " - " << locationText(where) << "\n";
    if (object != nullptr) {
        out << object->getLabel() << " " << object->getID() << "\n";
    }
}

} // namespace

std::uint32_t checkGLError(std::int32_t code, const ReportedObject* object, SourceLocation where) {
    return reportGLErrors([]() -> std::uint32_t { return glGetError(); }, code, object, where);
}

std::uint32_t reportGLErrors(std::uint32_t (*nextError)(), std::int32_t code, const ReportedObject* object,
                             SourceLocation where) {
    constexpr int invalidOperationsAtMost = 2;
    std::uint32_t count = 0;
    int invalidOperations = 0;
    while (invalidOperations < invalidOperationsAtMost) {
        const GLenum error = nextError();
        if (error == GL_NO_ERROR) {
            break;
        }
        reportError(count, error, code, object, where);
        ++count;
        invalidOperations += error == GL_INVALID_OPERATION ? 1 : 0;
    }
    return count;
}

} // namespace Vantrel
