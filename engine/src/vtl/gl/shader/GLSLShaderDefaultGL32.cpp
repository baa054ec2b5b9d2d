#include "vtl/gl/shader/GLSLShaderDefaultGL32.h"

namespace Vantrel {

std::unique_ptr<GLSLShaderDefaultGL32> GLSLShaderDefaultGL32::New() {
    return newSharedShader<GLSLShaderDefaultGL32>();
}

GLSLShaderDefaultGL32::GLSLShaderDefaultGL32(const GLSLShaderDataShared* data)
    : GLSLShaderWithMaterial(data) {
    addAttribute("VertexPosition", atVEC3);
    addAttribute("VertexNormal", atVEC3);
    addAttribute("VertexTexCoord", atVEC2);
    addAttribute("VertexColor", atVEC4);
    addUniform("ModelMat", utMAT4);
    addUniform("NormalMat", utMAT4);
    addMaterialUniforms();
    addUniform("ShadowMap", utSAMPLER2DSHADOW);
}

std::unique_ptr<GLSLShader> GLSLShaderDefaultGL32::clone() const {
    return std::make_unique<GLSLShaderDefaultGL32>(*this);
}

} // namespace Vantrel
