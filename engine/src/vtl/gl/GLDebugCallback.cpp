#include "vtl/gl/GLDebugCallback.h"

#include "vtl/base/ManagerEnvironmentConfiguration.h"
#include "vtl/base/Pause.h"
#include "vtl/base/Report.h"
#include "vtl/base/SourceLocation.h"
#include "vtl/gl/GLStubs.h"
#include "vtl/gl/ManagerOpenGLState.h"

#include <algorithm>
#include <array>
#include <span>

namespace Vantrel {
namespace {

/** Buffer placement and state hints that drivers repeat without end. */
constexpr std::array<GLuint, 8> ignoredDebugMessageIds{102,    2000,   131076, 131169,
                                                       131184, 131185, 131204, 131222};

struct CodeName {
    GLenum code;
    const char* name;
};

constexpr std::array<CodeName, 9> typeNames{{
    {GL_DEBUG_TYPE_ERROR, "ERROR"},
    {GL_DEBUG_TYPE_DEPRECATED_BEHAVIOR, "DEPRECATED_BEHAVIOR"},
    {GL_DEBUG_TYPE_UNDEFINED_BEHAVIOR, "UNDEFINED_BEHAVIOR"},
    {GL_DEBUG_TYPE_PORTABILITY, "PORTABILITY"},
    {GL_DEBUG_TYPE_PERFORMANCE, "PERFORMANCE"},
    {GL_DEBUG_TYPE_OTHER, "OTHER"},
    {GL_DEBUG_TYPE_MARKER, "MARKER"},
    {GL_DEBUG_TYPE_PUSH_GROUP, "PUSH GROUP"},
    {GL_DEBUG_TYPE_POP_GROUP, "POP GROUP"},
}};

constexpr std::array<CodeName, 4> severityNames{{
    {GL_DEBUG_SEVERITY_NOTIFICATION, "NOTIFICATION:"},
    {GL_DEBUG_SEVERITY_HIGH, "HIGH"},
    {GL_DEBUG_SEVERITY_MEDIUM, "MEDIUM"},
    {GL_DEBUG_SEVERITY_LOW, "LOW"},
}};

constexpr std::array<CodeName, 6> sourceNames{{
    {GL_DEBUG_SOURCE_API, "API"},
    {GL_DEBUG_SOURCE_WINDOW_SYSTEM, "WINDOW_SYSTEM"},
    {GL_DEBUG_SOURCE_SHADER_COMPILER, "SHADER_COMPILER"},
    {GL_DEBUG_SOURCE_THIRD_PARTY, "THIRD PARTY"},
    {GL_DEBUG_SOURCE_APPLICATION, "APPLICATION"},
    {GL_DEBUG_SOURCE_OTHER, "OTHER"},
}};

std::string nameOfCode(std::span<const CodeName> names, GLenum code, const char* unknown) {
    const auto known = std::find_if(names.begin(), names.end(),
                                    [code](const CodeName& entry) { return entry.code == code; });
    if (known != names.end()) {
        return known->name;
    }
    ReportText text;
    text << unknown << code << " (0x" << Hexadecimal{code} << ")'";
    return text.str();
}

void GLAPIENTRY onDebugMessage(GLenum source, GLenum type, GLuint id, GLenum severity, GLsizei /*length*/,
                               const GLchar* text, const void* /*userParam*/) {
    reportGLDebugMessage({.source = source,
                          .type = type,
                          .id = id,
                          .severity = severity,
                          .text = text != nullptr ? std::string_view(text) : std::string_view()});
}

} // namespace

void installDebugCallback(bool enabled) {
    if (enabled) {
        ManagerOpenGLState::setDebugCallbackHaltsOnEachMessage(
            ManagerEnvironmentConfiguration::getBool("gldebugmessagecallbackisenabledhaltoneachmessage"));
    }
    if (!isGLDebugMessageCallbackReal()) {
        return;
    }
    if (!enabled) {
        glDisable(GL_DEBUG_OUTPUT);
        return;
    }
    glEnable(GL_DEBUG_OUTPUT_SYNCHRONOUS);
    glDebugMessageCallback(onDebugMessage, nullptr);
    glDebugMessageControl(GL_DONT_CARE, GL_DONT_CARE, GL_DONT_CARE, 0, nullptr, GL_TRUE);
}

void reportGLDebugMessage(const GLDebugMessage& message) {
    if (std::find(ignoredDebugMessageIds.begin(), ignoredDebugMessageIds.end(), message.id) !=
        ignoredDebugMessageIds.end()) {
        return;
    }
    Report() << toString(message);
    if (ManagerOpenGLState::isDebugCallbackHaltingOnEachMessage()) {
        Report() << "Press ENTER to continue..." << locationText() << "\n";
        Pause::waitForKey();
    }
}

std::string toString(const GLDebugMessage& message) {
    ReportText text;
    text << "---------------------OpenGL Debug Callback Event Info------------\n"
         << "GL_DEBUG_SEVERITY_: "
         << nameOfCode(severityNames, message.severity, "Unknown GL_DEBUG_SEVERITY_ Level '") << "\n"
         << "GL_DEBUG_TYPE_    : " << nameOfCode(typeNames, message.type, "Unknown GL_DEBUG_TYPE_ Error '")
         << "\n"
         << "GL_DEBUG_SOURCE_  : "
         << nameOfCode(sourceNames, message.source, "Unknown GL_DEBUG_SOURCE_ Origin '") << "\n"
         << "\n"
         << "id: " << message.id << "\n"
         << "MESSAGE:\n"
         << message.text << "\n"
         << "-----------------------------------\n";
    return text.str();
}

} // namespace Vantrel
