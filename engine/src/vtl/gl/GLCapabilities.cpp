#include "vtl/gl/GLCapabilities.h"

#include "vtl/gl/GLError.h"
#include "vtl/gl/framebuffer/FramebufferFunctions.h"

#include <GL/glew.h>
#include <algorithm>

namespace Vantrel {
namespace {

std::string textOf(const GLubyte* answer) {
    return answer != nullptr ? reinterpret_cast<const char*>(answer) : GLCapabilities::noAnswer;
}

/** Drivers below 4.3 don't know the question and would answer with an error. */
std::vector<std::string> readShadingLanguageVersions() {
    GLint count = 0;
    if (GLEW_VERSION_4_3 && glGetStringi != nullptr) {
        glGetIntegerv(GL_NUM_SHADING_LANGUAGE_VERSIONS, &count);
    }
    std::vector<std::string> versions;
    for (GLint i = 0; i < count; ++i) {
        versions.push_back(textOf(glGetStringi(GL_SHADING_LANGUAGE_VERSION, static_cast<GLuint>(i))));
    }
    return versions;
}

/** Forward-compatible contexts know thin lines only. */
float readMaxLineWidth() {
    GLint flags = 0;
    if (GLEW_VERSION_3_0) {
        glGetIntegerv(GL_CONTEXT_FLAGS, &flags);
    }
    if ((flags & GL_CONTEXT_FLAG_FORWARD_COMPATIBLE_BIT) != 0) {
        return 1.0F;
    }
    GLfloat range[2] = {1.0F, 1.0F};
    glGetFloatv(GL_ALIASED_LINE_WIDTH_RANGE, range);
    return range[1];
}

/** The limits would be errors to ask for without the functions. */
void readFramebufferLimits(GLCapabilities& capabilities) {
    const FramebufferFunctions gl = FramebufferFunctions::ofContext();
    capabilities.areFramebufferObjectsSupported = gl.checkFramebufferStatus != nullptr;
    if (!capabilities.areFramebufferObjectsSupported) {
        return;
    }
    glGetIntegerv(GL_MAX_RENDERBUFFER_SIZE, &capabilities.maxFramebufferSize);
    capabilities.maxFramebufferSize = std::min(capabilities.maxFramebufferSize, capabilities.maxTextureSize);
    glGetIntegerv(GL_MAX_COLOR_ATTACHMENTS, &capabilities.maxColorAttachments);
    if (gl.renderbufferStorageMultisample != nullptr) {
        glGetIntegerv(GL_MAX_SAMPLES, &capabilities.maxSamples);
    }
}

} // namespace

GLCapabilities GLCapabilities::read() {
    GLCapabilities capabilities;
    capabilities.vendor = textOf(glGetString(GL_VENDOR));
    capabilities.renderer = textOf(glGetString(GL_RENDERER));
    capabilities.version = textOf(glGetString(GL_VERSION));
    capabilities.shadingLanguageVersion = textOf(glGetString(GL_SHADING_LANGUAGE_VERSION));
    checkGLError(510001);
    capabilities.shadingLanguageVersions = readShadingLanguageVersions();
    checkGLError(510002);
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &capabilities.maxTextureSize);
    checkGLError(510003);
    readFramebufferLimits(capabilities);
    // The client arrays that go with them are part of every GL library.
    capabilities.areVertexBuffersSupported =
        glGenBuffers != nullptr && glBindBuffer != nullptr && glBufferData != nullptr;
    capabilities.maxLineWidth = readMaxLineWidth();
    checkGLError(510004);
    return capabilities;
}

} // namespace Vantrel
