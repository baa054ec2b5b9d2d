#include "vtl/gl/shader/GLSLShaderDefaultGL32.h"

namespace Vantrel {

std::unique_ptr<GLSLShaderDefaultGL32> GLSLShaderDefaultGL32::New() {
    return newSharedShader<GLSLShaderDefaultGL32>();
}

GLSLShaderDefaultGL32::GLSLShaderDefaultGL32(const GLSLShaderDataShared* data) : GLSLShader(data) {
    addAttribute("VertexPosition", atVEC3);
    addAttribute("VertexNormal", atVEC3);
    addAttribute("VertexTexCoord", atVEC2);
    addAttribute("VertexColor", atVEC4);
    addUniform("ModelMat", utMAT4);
    addUniform("NormalMat", utMAT4);
    addUniform("TexMat0", utMAT4);
    addUniform("MVPMat", utMAT4);
    addUniform("TexUnit0", utSAMPLER2D);
    addUniform("Material.Ka", utVEC4);
    addUniform("Material.Kd", utVEC4);
    addUniform("Material.Ks", utVEC4);
    addUniform("Material.SpecularCoeff", utFLOAT);
    addUniform("ShadowMap", utSAMPLER2DSHADOW);
}

std::unique_ptr<GLSLShader> GLSLShaderDefaultGL32::clone() const {
    return std::make_unique<GLSLShaderDefaultGL32>(*this);
}

void GLSLShaderDefaultGL32::setModelMatrix(const Mat4& matrix) {
    uniforms[modelMatrix].setFloats(matrix.m.data());
}

void GLSLShaderDefaultGL32::setNormalMatrix(const Mat4& matrix) {
    uniforms[normalMatrix].setFloats(matrix.m.data());
}

void GLSLShaderDefaultGL32::setTextureMatrix(const Mat4& matrix) {
    uniforms[textureMatrix].setFloats(matrix.m.data());
}

void GLSLShaderDefaultGL32::setMVPMatrix(const Mat4& matrix) {
    uniforms[mvpMatrix].setFloats(matrix.m.data());
}

void GLSLShaderDefaultGL32::setMaterialAmbient(const vtlColor4f& color) {
    uniforms[materialAmbient].setFloats(&color.r);
}

void GLSLShaderDefaultGL32::setMaterialDiffuse(const vtlColor4f& color) {
    uniforms[materialDiffuse].setFloats(&color.r);
}

void GLSLShaderDefaultGL32::setMaterialSpecular(const vtlColor4f& color) {
    uniforms[materialSpecular].setFloats(&color.r);
}

void GLSLShaderDefaultGL32::setMaterialSpecularCoefficient(float coefficient) {
    uniforms[materialSpecularCoefficient].setFloat(coefficient);
}

} // namespace Vantrel
