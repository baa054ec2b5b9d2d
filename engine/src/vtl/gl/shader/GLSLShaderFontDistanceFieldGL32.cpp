#include "vtl/gl/shader/GLSLShaderFontDistanceFieldGL32.h"

namespace Vantrel {

GLSLShaderFontDistanceFieldGL32::GLSLShaderFontDistanceFieldGL32(const GLSLShaderDataShared* data)
    : GLSLShaderOfFiles(data) {
    addUniform("FontColor", utVEC4);
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
