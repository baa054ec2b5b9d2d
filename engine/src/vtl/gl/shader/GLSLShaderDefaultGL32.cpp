#include "vtl/gl/shader/GLSLShaderDefaultGL32.h"

namespace Vantrel {

GLSLShaderDefaultGL32::GLSLShaderDefaultGL32(const GLSLShaderDataShared* data) : GLSLShaderOfFiles(data) {
    addAttribute("VertexPosition", atVEC3);
    addAttribute("VertexNormal", atVEC3);
    addAttribute("VertexTexCoord", atVEC2);
    addAttribute("VertexColor", atVEC4);
    addUniform("ModelMat", utMAT4);
    addUniform("NormalMat", utMAT4);
    addMaterialUniforms();
    addUniform("ShadowMap", utSAMPLER2DSHADOW);
}

} // namespace Vantrel
