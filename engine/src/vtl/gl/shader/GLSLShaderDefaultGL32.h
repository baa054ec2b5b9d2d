#pragma once

#include "vtl/gl/shader/GLSLShader.h"
#include "vtl/gl/shader/SharedShader.h"

namespace Vantrel {

/**
 * Draws meshes: lit by the lights of "LightInfo" (ambient, diffuse and specular), modulated by texture 0 and
 * by the colours of the vertices. What has no normals, and everything while there are no lights, is drawn
 * unlit.
 */
class GLSLShaderDefaultGL32 : public GLSLShader {
public:
    static constexpr const char* vertexFile = "shaders/defaultGL32.vert";
    static constexpr const char* fragmentFile = "shaders/defaultGL32.frag";
    static std::unique_ptr<GLSLShaderDefaultGL32> New();
    explicit GLSLShaderDefaultGL32(const GLSLShaderDataShared* data);
    std::unique_ptr<GLSLShader> clone() const override;

    void setModelMatrix(const Mat4& matrix);
    /** Model space to eye space, for directions. */
    void setNormalMatrix(const Mat4& matrix);
    void setTextureMatrix(const Mat4& matrix);
    void setMVPMatrix(const Mat4& matrix);
    void setMaterialAmbient(const vtlColor4f& color);
    void setMaterialDiffuse(const vtlColor4f& color);
    void setMaterialSpecular(const vtlColor4f& color);
    /** The exponent of the highlight. */
    void setMaterialSpecularCoefficient(float coefficient);

protected:
    /** Where a class of this family finds its own uniforms: behind these. */
    enum UniformPosition : std::size_t {
        modelMatrix,
        normalMatrix,
        textureMatrix,
        mvpMatrix,
        textureUnit,
        materialAmbient,
        materialDiffuse,
        materialSpecular,
        materialSpecularCoefficient,
        shadowMap,
        uniformCount,
    };
};

} // namespace Vantrel
