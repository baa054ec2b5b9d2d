#include "vtl/gl/shader/GLSLShaderDefaultOrthoWOGUI_GL32.h"

namespace Vantrel {

GLSLShaderDefaultOrthoWOGUI_GL32::GLSLShaderDefaultOrthoWOGUI_GL32(const GLSLShaderDataShared* data)
    : GLSLShaderOfFiles(data) {
    addAttribute("VertexPosition", atVEC3);
    addAttribute("VertexTexCoord", atVEC2);
    addMaterialUniforms();
}

void GLSLShaderDefaultOrthoWOGUI_GL32::bind(const Mat4& mvp, const ShaderMaterial& material) {
    bind();
    setMVPMatrix(mvp);
    sendMaterial(material);
}

} // namespace Vantrel
