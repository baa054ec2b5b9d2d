#include "vtl/gl/GLStubs.h"

#include "vtl/base/Report.h"

#include <GL/glew.h>
#include <type_traits>

namespace Vantrel {
namespace {

void GLAPIENTRY stubGLDebugMessageCallback(GLDEBUGPROC /*callback*/, const void* /*userParam*/) {
    Report() << " stubGLDebugMessageCallback substituted\n";
}

void GLAPIENTRY stubGLActiveTexture(GLenum /*unit*/) {
}

void GLAPIENTRY stubGLClientActiveTexture(GLenum /*unit*/) {
}

void GLAPIENTRY stubGLDrawRangeElements(GLenum mode, GLuint /*start*/, GLuint /*end*/, GLsizei count,
                                        GLenum type, const void* indices) {
    glDrawElements(mode, count, type, indices);
}

void GLAPIENTRY stubGLGenerateMipmap(GLenum /*target*/) {
    Report() << "stub glGenerateMipmap... Update your driver to OpenGL 3.0...\n";
}

void GLAPIENTRY stubGLDispatchCompute(GLuint groupsX, GLuint groupsY, GLuint groupsZ) {
    Report() << "stub glDispatchCompute( " << groupsX << ", " << groupsY << ", " << groupsZ
             << " ) - compute shaders are not supported...\n";
}

void GLAPIENTRY stubGLDispatchComputeIndirect(GLintptr offset) {
    Report() << " stubGLDispatchComputeIndirect " << offset << "\n";
}

template <class EntryPoint>
void substituteMissing(EntryPoint& entryPoint, std::type_identity_t<EntryPoint> stub, const char* warning) {
    if (entryPoint == nullptr) {
        Report() << warning;
        entryPoint = stub;
    }
}

void reportUnreplacedFunctions() {
    if (glFramebufferRenderbuffer == nullptr) {
        Report() << "GL WARNING: OpenGL 3.0 glFramebufferRenderbuffer not supported on this hardware/driver, "
                    "may need to use extension... \n";
    } else {
        Report() << "glFramebufferRenderbuffer is SUPPORTED...\n";
    }
    if (glDispatchCompute != stubGLDispatchCompute) {
        Report() << "glDispatchCompute is SUPPORTED...\n";
    }
}

} // namespace

void stubMissingGLFunctions() {
    substituteMissing(glDebugMessageCallback, stubGLDebugMessageCallback, "");
    substituteMissing(glActiveTexture, stubGLActiveTexture,
                      "GL WARNING: glActiveTexture is not supported on this hardware...\n"
                      "   glActiveTexture stubified...\n");
    substituteMissing(glClientActiveTexture, stubGLClientActiveTexture,
                      "GL WARNING: glClientActiveTexture is not supported on this hardware...\n"
                      "   glClientActiveTexture stubified...\n");
    substituteMissing(
        glDrawRangeElements, stubGLDrawRangeElements,
        "glDrawRangeElements is using stubGLDrawRangeElements as Range is not supported on your "
        "hardware...\n");
    substituteMissing(
        glGenerateMipmap, stubGLGenerateMipmap,
        "GL WARNING: glGenerateMipmap is not supported on this hardware...\n"
        "glGenerateMipmap is using stubGLGenerateMipmap as glGenerateMipmap requires OpenGL 3.0, "
        "which is not currently supported on your hardware...\n");
    substituteMissing(glDispatchCompute, stubGLDispatchCompute,
                      "GL WARNING: glDispatchCompute - OpenGL 4.3 Compute Shaders are not supported on this "
                      "hardware/driver... \n");
    substituteMissing(
        glDispatchComputeIndirect, stubGLDispatchComputeIndirect,
        "GL WARNING: OpenGL 4.3 Compute Shaders are not supported on this hardware/driver... \n");
    reportUnreplacedFunctions();
}

bool isGLDebugMessageCallbackReal() {
    return glDebugMessageCallback != nullptr && glDebugMessageCallback != stubGLDebugMessageCallback;
}

} // namespace Vantrel
