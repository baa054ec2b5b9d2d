#pragma once

#include "vtl/gl/shader/GLSLShader.h"
#include "vtl/gl/texture/Texture.h"
#include "vtl/math/vtlColor4f.h"
#include "vtl/math/vtlColor4ub.h"
#include "vtl/mesh/MeshShadingType.h"

#include <GL/glew.h>
#include <cstdint>
#include <memory>
#include <vector>

namespace Vantrel {

/** Where a mesh stands and from where it is seen, while it is drawn. */
struct ModelMeshMatrices {
    /** Model space to the world. */
    const Mat4& modelMatrix;
    /** Model space to eye space, for directions. */
    const Mat4& normalMatrix;
    const ShaderCamera& camera;
};

/** Where a mesh keeps its vertices: in client memory or in buffers on the card. */
enum class MESH_RENDER_TYPE : std::uint8_t {
    VA = 0,
    VBO = 1,
};

/**
 * The look of one mesh in one instance: material, textures, shader, and which render data it wants. Main
 * thread.
 */
class ModelMeshSkin {
public:
    /** From 3.2 on with the default shader and a white texture. */
    ModelMeshSkin();
    /** With that texture alone. */
    explicit ModelMeshSkin(std::unique_ptr<Texture> texture);
    /** Deep: textures and shader are cloned. */
    ModelMeshSkin(const ModelMeshSkin& other);
    ModelMeshSkin(ModelMeshSkin&&) noexcept = default;
    ModelMeshSkin& operator=(const ModelMeshSkin& other) { return *this = ModelMeshSkin(other); }
    ModelMeshSkin& operator=(ModelMeshSkin&&) noexcept = default;
    ~ModelMeshSkin() = default;

    /**
     * Sets everything for drawing, up to `unbind`; `matrices` must last until then. Without matrices the
     * shader keeps those that it has. Texture unit 0 is the selected one after it.
     */
    void bind(const ModelMeshMatrices* matrices);
    void unbind();
    /** Those of the last `bind`; null outside of one and without matrices. */
    const ModelMeshMatrices* getBoundMatrices() const { return boundMatrices; }

    void setColor(const vtlColor4ub& bytes) { color = vtlColor4f(bytes); }
    void setColor(float r, float g, float b, float a) { color = {r, g, b, a}; }
    /** From components of 0 to 255. */
    void setColor(int r, int g, int b, int a);
    /** In place of the shader that it has; null for none. */
    void setShader(std::unique_ptr<GLSLShader> other) { shader = std::move(other); }
    /** Takes over what decides which render data is drawn. */
    void drawLike(const ModelMeshSkin& other) {
        shadingType = other.shadingType;
        primitiveType = other.primitiveType;
        renderType = other.renderType;
    }
    /** What a vertex without a colour of its own is drawn in on the shader path. */
    vtlColor4f getVertexColor() const { return colorMaterial ? color : vtlColor4f(); }

    /** For the texture units from 0 on; null leaves its unit alone. */
    std::vector<std::unique_ptr<Texture>> textures;
    std::unique_ptr<GLSLShader> shader;
    vtlColor4f ambient{0.4F, 0.4F, 0.4F, 1.0F};
    vtlColor4f diffuse{0.75F, 0.75F, 0.75F, 1.0F};
    vtlColor4f specular;
    /** Exponent of the highlight; the fixed-function path takes no more than 128. */
    float specularCoefficient = 1000.0F;
    vtlColor4f color;
    /** Whether `color`, or the colour of a vertex, takes the place of `ambient` and `diffuse`. */
    bool colorMaterial = true;
    MESH_SHADING_TYPE shadingType = MESH_SHADING_TYPE::mstNOTINITIALIZED;
    GLenum primitiveType = GL_TRIANGLES;
    /** Pixels; for line primitives. */
    float lineWidth = 1.0F;
    /** From 3.2 on vertices are in buffers anyway. */
    MESH_RENDER_TYPE renderType = MESH_RENDER_TYPE::VBO;
    /** Whether a line in yellow shows the normal of each vertex. */
    bool renderNormals = false;
    float normalLength = 1.0F;
    float normalLineWidth = 1.0F;
    bool visibleFlag = true;

private:
    bool isWideLinePrimitive() const;
    void bindMaterialFixedFunction() const;
    ShaderMaterial shaderMaterial() const;

    const ModelMeshMatrices* boundMatrices = nullptr;
};

} // namespace Vantrel
