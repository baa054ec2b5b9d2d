#include "vtl/gl/shader/GLSLShaderDefaultOrthoWOGUI_GL32.h"

namespace Vantrel {

std::unique_ptr<GLSLShaderDefaultOrthoWOGUI_GL32> GLSLShaderDefaultOrthoWOGUI_GL32::New() {
    return newSharedShader<GLSLShaderDefaultOrthoWOGUI_GL32>();
}

GLSLShaderDefaultOrthoWOGUI_GL32::GLSLShaderDefaultOrthoWOGUI_GL32(const GLSLShaderDataShared* data)
    : GLSLShader(data) {
    addAttribute("VertexPosition", atVEC3);
    addAttribute("VertexTexCoord", atVEC2);
    addUniform("TexMat0", utMAT4);
    addUniform("MVPMat", utMAT4);
    addUniform("TexUnit0", utSAMPLER2D);
    addUniform("Material.Ka", utVEC4);
    addUniform("Material.Kd", utVEC4);
    addUniform("Material.Ks", utVEC4);
    addUniform("Material.SpecularCoeff", utFLOAT);
}

std::unique_ptr<GLSLShader> GLSLShaderDefaultOrthoWOGUI_GL32::clone() const {
    return std::make_unique<GLSLShaderDefaultOrthoWOGUI_GL32>(*this);
}

void GLSLShaderDefaultOrthoWOGUI_GL32::bind(const Mat4& mvp, const ShaderMaterial& material) {
    bind();
    setMVPMatrix(mvp);
    sendMaterial(material);
}

void GLSLShaderDefaultOrthoWOGUI_GL32::setTextureMatrix(const Mat4& matrix) {
    uniforms[textureMatrix].setFloats(matrix.m.data());
}

void GLSLShaderDefaultOrthoWOGUI_GL32::setMVPMatrix(const Mat4& matrix) {
    uniforms[mvpMatrix].setFloats(matrix.m.data());
}

void GLSLShaderDefaultOrthoWOGUI_GL32::setMaterialAmbient(const vtlColor4f& color) {
    uniforms[materialAmbient].setFloats(&color.r);
}

void GLSLShaderDefaultOrthoWOGUI_GL32::setMaterialDiffuse(const vtlColor4f& color) {
    uniforms[materialDiffuse].setFloats(&color.r);
}

void GLSLShaderDefaultOrthoWOGUI_GL32::setMaterialSpecular(const vtlColor4f& color) {
    uniforms[materialSpecular].setFloats(&color.r);
}

void GLSLShaderDefaultOrthoWOGUI_GL32::setMaterialSpecularCoefficient(float coefficient) {
    uniforms[materialSpecularCoefficient].setFloat(coefficient);
}

} // namespace Vantrel
