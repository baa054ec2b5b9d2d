#pragma once

#include "vtl/gl/shader/GLSLShaderWithMaterial.h"
#include "vtl/gl/shader/SharedShader.h"

namespace Vantrel {

/** Draws widgets: pictures tinted by the diffuse colour, without light. */
class GLSLShaderDefaultOrthoWOGUI_GL32 : public GLSLShaderWithMaterial {
public:
    static constexpr const char* vertexFile = "shaders/defaultOrthoMGLGUI_GL32.vert";
    static constexpr const char* fragmentFile = "shaders/defaultOrthoMGLGUI_GL32.frag";
    static std::unique_ptr<GLSLShaderDefaultOrthoWOGUI_GL32> New();
    explicit GLSLShaderDefaultOrthoWOGUI_GL32(const GLSLShaderDataShared* data);
    std::unique_ptr<GLSLShader> clone() const override;

    using GLSLShaderWithMaterial::bind;
    /** `mvp` takes the widget's space to clip space. */
    void bind(const Mat4& mvp, const ShaderMaterial& material);
};

} // namespace Vantrel
