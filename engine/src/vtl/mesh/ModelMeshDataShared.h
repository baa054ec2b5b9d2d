#pragma once

#include "vtl/mesh/ModelMeshRenderDataGenerator.h"
#include "vtl/mesh/ModelMeshSkin.h"

#include <cstdint>
#include <map>
#include <memory>
#include <utility>

namespace Vantrel {

/**
 * One mesh of a file, which all instances of the file share: its generator, and the render data made so far,
 * one for each pair of shading type and primitive type. Main thread, with the context.
 */
class ModelMeshDataShared {
public:
    /** `meshGenerator` isn't null. */
    explicit ModelMeshDataShared(std::unique_ptr<ModelMeshRenderDataGenerator> meshGenerator);

    /**
     * Makes the render data of the pair unless it is there, on the card where the render type or the context
     * asks for that. A pair that the generator refuses ends the process after a key.
     */
    void generateRenderData(MESH_SHADING_TYPE shadingType, MESH_RENDER_TYPE renderType, GLenum primitiveType);
    /** The same, but makes anew what is there, in its place. */
    void regenerateRenderData(MESH_SHADING_TYPE shadingType, MESH_RENDER_TYPE renderType,
                              GLenum primitiveType);
    bool hasRenderData(MESH_SHADING_TYPE shadingType, GLenum primitiveType) const;
    /** Null for an absent pair; otherwise good as long as this object. */
    ModelMeshRenderData* getRenderData(MESH_SHADING_TYPE shadingType, GLenum primitiveType);
    ModelMeshRenderDataGenerator& getGenerator() const { return *generator; }

    /** Draws what the bound skin asks for, which is made first where it is absent. */
    void render(const ModelMeshSkin& skin);
    static void render(const ModelMeshSkin& skin, ModelMeshRenderData& data);
    /**
     * Draws the same for picking: on the fixed-function path in that colour, otherwise with the selection
     * shader that the caller has bound.
     */
    void renderSelection(const ModelMeshSkin& skin, std::uint8_t r, std::uint8_t g, std::uint8_t b);
    static void renderSelection(const ModelMeshSkin& skin, const ModelMeshRenderData& data, std::uint8_t r,
                                std::uint8_t g, std::uint8_t b);

private:
    using Key = std::pair<MESH_SHADING_TYPE, GLenum>;

    ModelMeshRenderData& renderDataOf(const ModelMeshSkin& skin);
    static void renderVertexArrays(const ModelMeshSkin& skin, const ModelMeshRenderData& data);
    static void renderVertexArrayObject(const ModelMeshSkin& skin, const ModelMeshRenderData& data);
    static void renderNormals(const ModelMeshSkin& skin, ModelMeshRenderData& data);
    static void renderNormalsFixedFunction(const ModelMeshSkin& skin, const ModelMeshRenderData& data);
    static void renderNormalsWithShader(const ModelMeshSkin& skin, ModelMeshRenderData& data);
    static void renderSelectionVertexArrays(const ModelMeshSkin& skin, const ModelMeshRenderData& data,
                                            std::uint8_t r, std::uint8_t g, std::uint8_t b);
    static void renderSelectionVertexArrayObject(const ModelMeshSkin& skin, const ModelMeshRenderData& data);

    std::map<Key, ModelMeshRenderData> renderData;
    std::unique_ptr<ModelMeshRenderDataGenerator> generator;
};

} // namespace Vantrel
