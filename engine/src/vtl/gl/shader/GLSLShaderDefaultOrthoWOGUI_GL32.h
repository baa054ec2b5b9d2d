#pragma once

#include "vtl/gl/shader/GLSLShaderOfFiles.h"
#include "vtl/gl/shader/GLSLShaderWithMaterial.h"

namespace Vantrel {

/** Draws widgets: pictures tinted by the diffuse colour, without light. */
class GLSLShaderDefaultOrthoWOGUI_GL32
    : public GLSLShaderOfFiles<GLSLShaderDefaultOrthoWOGUI_GL32, GLSLShaderWithMaterial> {
public:
    static constexpr const char* vertexFile = "shaders/defaultOrthoMGLGUI_GL32.vert";
    static constexpr const char* fragmentFile = "shaders/defaultOrthoMGLGUI_GL32.frag";
    explicit GLSLShaderDefaultOrthoWOGUI_GL32(const GLSLShaderDataShared* data);

    using GLSLShaderWithMaterial::bind;
    /** `mvp` takes the widget's space to clip space. */
    void bind(const Mat4& mvp, const ShaderMaterial& material);
};

} // namespace Vantrel
