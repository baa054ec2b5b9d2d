#pragma once

#include "vtl/gl/shader/GLSLShaderOfFiles.h"

namespace Vantrel {

/** Draws an object for picking: all of it in one colour, exact to the byte. */
class GLSLShaderDefaultSelectionGL32 : public GLSLShaderOfFiles<GLSLShaderDefaultSelectionGL32> {
public:
    static constexpr const char* vertexFile = "shaders/defaultSelectionGL32.vert";
    static constexpr const char* fragmentFile = "shaders/defaultSelectionGL32.frag";
    explicit GLSLShaderDefaultSelectionGL32(const GLSLShaderDataShared* data);

    using GLSLShader::bind;
    /** `mvp` takes model space to clip space. */
    void bind(const Mat4& mvp, std::uint8_t r, std::uint8_t g, std::uint8_t b);

private:
    enum UniformPosition : std::size_t { mvpMatrix, selectionColor };
};

} // namespace Vantrel
