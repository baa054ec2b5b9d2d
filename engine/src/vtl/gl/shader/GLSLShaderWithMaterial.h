#pragma once

#include "vtl/gl/shader/GLSLShader.h"

namespace Vantrel {

/** What the shaders with a texture and a material have in common. The setters work without binding. */
class GLSLShaderWithMaterial : public GLSLShader {
public:
    void setTextureMatrix(const Mat4& matrix) { setFloats(textureMatrix, matrix.m.data()); }
    /** Model space to clip space. */
    void setMVPMatrix(const Mat4& matrix) { setFloats(mvpMatrix, matrix.m.data()); }
    void setMaterialAmbient(const vtlColor4f& color) { setFloats(materialAmbient, &color.r); }
    void setMaterialDiffuse(const vtlColor4f& color) { setFloats(materialDiffuse, &color.r); }
    void setMaterialSpecular(const vtlColor4f& color) { setFloats(materialSpecular, &color.r); }
    /** The exponent of the highlight. */
    void setMaterialSpecularCoefficient(float coefficient) {
        setFloats(materialSpecularCoefficient, &coefficient);
    }

protected:
    explicit GLSLShaderWithMaterial(const GLSLShaderDataShared* data) : GLSLShader(data) {}
    GLSLShaderWithMaterial(const GLSLShaderWithMaterial&) = default;
    /** Adds "TexMat0", "MVPMat", "TexUnit0" and the parts of "Material", behind what has been added before.
     */
    void addMaterialUniforms();

private:
    /** Counted from the first of them. */
    enum UniformPosition : std::size_t {
        textureMatrix,
        mvpMatrix,
        textureUnit,
        materialAmbient,
        materialDiffuse,
        materialSpecular,
        materialSpecularCoefficient,
    };

    void setFloats(UniformPosition position, const float* values) {
        uniforms[firstOfMaterial + position].setFloats(values);
    }

    std::size_t firstOfMaterial = 0;
};

} // namespace Vantrel
