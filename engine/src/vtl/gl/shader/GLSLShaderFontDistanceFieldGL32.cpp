#include "vtl/gl/shader/GLSLShaderFontDistanceFieldGL32.h"

namespace Vantrel {

std::unique_ptr<GLSLShaderFontDistanceFieldGL32> GLSLShaderFontDistanceFieldGL32::New() {
    return newSharedShader<GLSLShaderFontDistanceFieldGL32>();
}

GLSLShaderFontDistanceFieldGL32::GLSLShaderFontDistanceFieldGL32(const GLSLShaderDataShared* data)
    : GLSLShaderDefaultGL32(data) {
    addUniform("FontColor", utVEC4);
}

std::unique_ptr<GLSLShader> GLSLShaderFontDistanceFieldGL32::clone() const {
    return std::make_unique<GLSLShaderFontDistanceFieldGL32>(*this);
}

void GLSLShaderFontDistanceFieldGL32::bind() {
    GLSLShaderDefaultGL32::bind();
    uniforms[uniformCount].setFloats(&fontColor.r);
}

void GLSLShaderFontDistanceFieldGL32::setFontColor(const vtlColor4f& color) {
    fontColor = color;
    uniforms[uniformCount].setFloats(&fontColor.r);
}

} // namespace Vantrel
