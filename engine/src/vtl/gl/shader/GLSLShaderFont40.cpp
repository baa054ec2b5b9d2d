#include "vtl/gl/shader/GLSLShaderFont40.h"

namespace Vantrel {

GLSLShaderFont40::GLSLShaderFont40(const GLSLShaderDataShared* data) : GLSLShaderOfFiles(data) {
    addAttribute("VertexPosition", atVEC2);
    addAttribute("VertexTexCoord", atVEC2);
    addUniform("ModelMat", utMAT4);
    addUniform("MVPMat", utMAT4);
    addUniform("TexUnit0", utSAMPLER2D);
    addUniform("Color", utVEC4);
}

void GLSLShaderFont40::bind(const Mat4& modelMatrix, const ShaderCamera& camera) {
    bind();
    setMatrices(modelMatrix, camera);
}

void GLSLShaderFont40::setMatrices(const Mat4& modelMatrix, const ShaderCamera& camera) {
    uniforms[model].setFloats(modelMatrix.m.data());
    uniforms[mvpMatrix].setFloats((camera.getViewProjectionMatrix() * modelMatrix).m.data());
}

void GLSLShaderFont40::setColor(const vtlColor4f& color) {
    uniforms[textColor].setFloats(&color.r);
}

} // namespace Vantrel
