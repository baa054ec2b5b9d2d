#include "vtl/gl/shader/GLSLShaderDefaultSelectionGL32.h"

#include "vtl/math/vtlColor4f.h"

namespace Vantrel {

std::unique_ptr<GLSLShaderDefaultSelectionGL32> GLSLShaderDefaultSelectionGL32::New() {
    return newSharedShader<GLSLShaderDefaultSelectionGL32>();
}

GLSLShaderDefaultSelectionGL32::GLSLShaderDefaultSelectionGL32(const GLSLShaderDataShared* data)
    : GLSLShader(data) {
    addAttribute("VertexPosition", atVEC3);
    addUniform("MVPMat", utMAT4);
    addUniform("SelectionColor", utVEC4);
}

std::unique_ptr<GLSLShader> GLSLShaderDefaultSelectionGL32::clone() const {
    return std::make_unique<GLSLShaderDefaultSelectionGL32>(*this);
}

void GLSLShaderDefaultSelectionGL32::bind(const Mat4& mvp, std::uint8_t r, std::uint8_t g, std::uint8_t b) {
    bind();
    uniforms[mvpMatrix].setFloats(mvp.m.data());
    constexpr std::uint8_t opaque = 255;
    const vtlColor4f color(r, g, b, opaque);
    uniforms[selectionColor].setFloats(&color.r);
}

} // namespace Vantrel
