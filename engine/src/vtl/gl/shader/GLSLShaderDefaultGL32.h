#pragma once

#include "vtl/gl/shader/GLSLShaderOfFiles.h"
#include "vtl/gl/shader/GLSLShaderWithMaterial.h"

namespace Vantrel {

/**
 * Draws meshes: lit by the lights of "LightInfo" (ambient, diffuse and specular), modulated by texture 0 and
 * by the colours of the vertices. What has no normals, and everything while there are no lights, is drawn
 * unlit.
 */
class GLSLShaderDefaultGL32 : public GLSLShaderOfFiles<GLSLShaderDefaultGL32, GLSLShaderWithMaterial> {
public:
    static constexpr const char* vertexFile = "shaders/defaultGL32.vert";
    static constexpr const char* fragmentFile = "shaders/defaultGL32.frag";
    explicit GLSLShaderDefaultGL32(const GLSLShaderDataShared* data);

    void setModelMatrix(const Mat4& matrix) { uniforms[modelMatrix].setFloats(matrix.m.data()); }
    /** Model space to eye space, for directions. */
    void setNormalMatrix(const Mat4& matrix) { uniforms[normalMatrix].setFloats(matrix.m.data()); }

protected:
    /** Classes of this family add their own uniforms behind these. */
    static constexpr std::size_t uniformCount = 10;

private:
    enum UniformPosition : std::size_t { modelMatrix, normalMatrix };
};

} // namespace Vantrel
