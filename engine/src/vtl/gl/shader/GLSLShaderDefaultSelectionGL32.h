#pragma once

#include "vtl/gl/shader/GLSLShader.h"
#include "vtl/gl/shader/SharedShader.h"

namespace Vantrel {

/** Draws an object for picking: all of it in one colour, exact to the byte. */
class GLSLShaderDefaultSelectionGL32 : public GLSLShader {
public:
    static constexpr const char* vertexFile = "shaders/defaultSelectionGL32.vert";
    static constexpr const char* fragmentFile = "shaders/defaultSelectionGL32.frag";
    static std::unique_ptr<GLSLShaderDefaultSelectionGL32> New();
    explicit GLSLShaderDefaultSelectionGL32(const GLSLShaderDataShared* data);
    std::unique_ptr<GLSLShader> clone() const override;

    using GLSLShader::bind;
    /** `mvp` takes model space to clip space. */
    void bind(const Mat4& mvp, std::uint8_t r, std::uint8_t g, std::uint8_t b);

private:
    enum UniformPosition : std::size_t { mvpMatrix, selectionColor };
};

} // namespace Vantrel
