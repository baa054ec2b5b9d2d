#pragma once

#include "vtl/gl/shader/GLSLShaderOfFiles.h"

namespace Vantrel {

/** Draws text of one picture a glyph. */
class GLSLShaderFont40 : public GLSLShaderOfFiles<GLSLShaderFont40> {
public:
    static constexpr const char* vertexFile = "shaders/font40.vert";
    static constexpr const char* fragmentFile = "shaders/font40.frag";
    explicit GLSLShaderFont40(const GLSLShaderDataShared* data);

    using GLSLShader::bind;
    void bind(const Mat4& modelMatrix, const ShaderCamera& camera);
    /** Without binding. */
    void setMatrices(const Mat4& modelMatrix, const ShaderCamera& camera);
    void setColor(const vtlColor4f& color);

private:
    enum UniformPosition : std::size_t { model, mvpMatrix, textureUnit, textColor };
};

} // namespace Vantrel
