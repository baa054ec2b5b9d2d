#include "vtl/gl/shader/GLSLShaderDefaultSelectionGL32.h"

#include "vtl/math/vtlColor4f.h"

namespace Vantrel {

GLSLShaderDefaultSelectionGL32::GLSLShaderDefaultSelectionGL32(const GLSLShaderDataShared* data)
    : GLSLShaderOfFiles(data) {
    addAttribute("VertexPosition", atVEC3);
    addUniform("MVPMat", utMAT4);
    addUniform("SelectionColor", utVEC4);
}

void GLSLShaderDefaultSelectionGL32::bind(const Mat4& mvp, std::uint8_t r, std::uint8_t g, std::uint8_t b) {
    bind();
    uniforms[mvpMatrix].setFloats(mvp.m.data());
    constexpr std::uint8_t opaque = 255;
    const vtlColor4f color(r, g, b, opaque);
    uniforms[selectionColor].setFloats(&color.r);
}

} // namespace Vantrel
