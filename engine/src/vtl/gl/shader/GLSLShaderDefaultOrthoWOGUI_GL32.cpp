#include "vtl/gl/shader/GLSLShaderDefaultOrthoWOGUI_GL32.h"

namespace Vantrel {

std::unique_ptr<GLSLShaderDefaultOrthoWOGUI_GL32> GLSLShaderDefaultOrthoWOGUI_GL32::New() {
    return newSharedShader<GLSLShaderDefaultOrthoWOGUI_GL32>();
}

GLSLShaderDefaultOrthoWOGUI_GL32::GLSLShaderDefaultOrthoWOGUI_GL32(const GLSLShaderDataShared* data)
    : GLSLShaderWithMaterial(data) {
    addAttribute("VertexPosition", atVEC3);
    addAttribute("VertexTexCoord", atVEC2);
    addMaterialUniforms();
}

std::unique_ptr<GLSLShader> GLSLShaderDefaultOrthoWOGUI_GL32::clone() const {
    return std::make_unique<GLSLShaderDefaultOrthoWOGUI_GL32>(*this);
}

void GLSLShaderDefaultOrthoWOGUI_GL32::bind(const Mat4& mvp, const ShaderMaterial& material) {
    bind();
    setMVPMatrix(mvp);
    sendMaterial(material);
}

} // namespace Vantrel
