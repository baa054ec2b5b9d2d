#pragma once

#include "vtl/math/VectorT.h"
#include "vtl/math/vtlColor4ub.h"
#include "vtl/mesh/CoincidentVertices.h"
#include "vtl/mesh/GLSLAttributeArray.h"
#include "vtl/mesh/MeshShadingType.h"
#include "vtl/mesh/ModelMeshRenderData.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace Vantrel {

/** Texture coordinates of every vertex: x is s, y is t, z is r. */
struct ModelMeshTextureCoordSet {
    /** By vertex number. */
    std::vector<Vector> coords;
    /** GL_TEXTURE_1D, GL_TEXTURE_2D or GL_TEXTURE_3D: 1, 2 or 3 components count. */
    GLenum target = GL_TEXTURE_2D;

    /** How many components count; 0 for another target. */
    std::uint32_t componentCount() const;
};

/**
 * Turns the lists that a parser or a procedural model fills into vertex blocks and index arrays, one for each
 * shading type and primitive type that somebody asks for.
 *
 * A list that is shorter than `vertices` leaves the rest of its part of the block zero; what is longer is
 * left out. Primitives that name a missing vertex are left out and reported, an incomplete last triangle
 * without a word. Main thread.
 */
class ModelMeshRenderDataGenerator {
public:
    /**
     * Generates what a mesh with that shading draws as that primitive. A shading type without generation and
     * a combination that isn't implemented end the process after a key.
     */
    ModelMeshRenderData generateRenderData(MESH_SHADING_TYPE shadingType, GLenum primitiveType);
    ModelMeshRenderData generateFlat(GLenum primitiveType);
    /**
     * A vertex for each corner, with the normal of its triangle. The first corner that names a vertex keeps
     * it, the others get copies behind the input's vertices. Afterwards `colors`, unless empty, holds the
     * colours of the copies too.
     */
    ModelMeshRenderData generateFlatTriangles();
    ModelMeshRenderData generateSmooth(GLenum primitiveType);
    /**
     * The input's vertices, with the mean of the face normals of all corners at the vertex's position, in
     * which each face counts the same.
     */
    ModelMeshRenderData generateSmoothTriangles();
    ModelMeshRenderData generateNoNormals(GLenum primitiveType);
    /** One point for each vertex, whatever the indices. */
    ModelMeshRenderData generateNoNormalsPointsFromTriangles();
    /** The plain build: the vertices and indices as they are. */
    ModelMeshRenderData buildWithoutNormals();

    /** Fills the offsets and `stride`. */
    void computeLayout(MESH_SHADING_TYPE shadingType);

    /**
     * The tangent of a triangle with the edges `e1`, `e2` from its first corner, where the coordinates change
     * by `d1` and, backwards, by `d2`. Zero where there is none.
     */
    static Vector computeTangentFlat(const Vector& e1, const Vector& e2, const Vector& d1, const Vector& d2);
    /** The tangent of a triangle with those corners and coordinates. Zero where there is none. */
    static Vector computeTangentSmooth(const Vector& p0, const Vector& p1, const Vector& p2,
                                       const Vector& uv0, const Vector& uv1, const Vector& uv2);

    /** Bytes of a vertex. */
    std::uint32_t stride = 0;
    std::uint32_t positionOffset = 0;
    /** GL_RGB: 3 bytes, GL_RGBA: 4. */
    GLenum colorFormat = GL_RGB;
    std::uint32_t colorOffset = 0;
    std::uint32_t normalOffset = 0;
    std::vector<std::uint32_t> textureCoordOffsets;
    std::vector<std::uint32_t> attributeOffsets;
    /** Whether a run makes an attribute array "tangent", in place of that of the run before. */
    bool generateTangents = false;
    std::vector<Vector> vertices;
    std::vector<std::uint32_t> indices;
    /** One for each vertex, or none. */
    std::vector<vtlColor4ub> colors;
    std::vector<ModelMeshTextureCoordSet> textureCoordSets;
    std::vector<GLSLAttributeArray> attributeArrays;
    /** The primitive that `indices` describe. */
    GLenum sourcePrimitive = GL_TRIANGLES;

private:
    struct FlatCorners;

    /**
     * The parts of a block of `stride` bytes a vertex. The block's last vertices are copies of those that
     * `copies` names. What has no entry in the lists isn't written.
     */
    void writePositions(std::span<std::byte> block, std::span<const std::uint32_t> copies = {}) const;
    void writeColors(std::span<std::byte> block) const;
    void writeTextureCoords(std::span<std::byte> block, std::span<const std::uint32_t> copies = {}) const;
    /** Writes atVEC3 arrays; another array that isn't empty is reported and costs a pause. */
    void writeAttributes(std::span<std::byte> block, std::span<const std::uint32_t> copies = {}) const;

    std::span<const std::uint32_t> usableIndices(std::size_t corners, std::vector<std::uint32_t>& kept) const;
    std::span<const std::uint32_t> plainIndices(std::vector<std::uint32_t>& kept) const;
    FlatCorners giveEveryCornerItsVertex(std::span<const std::uint32_t> corners) const;
    void copyColors(std::span<const std::uint32_t> copies);
    void computeTangentsFlat(std::span<const std::uint32_t> corners, const FlatCorners& flat);
    void writeFlatNormals(std::span<std::byte> block, std::span<const std::uint32_t> corners,
                          std::span<const std::uint32_t> numbers) const;
    void computeTangentsSmooth(std::span<const std::uint32_t> corners, const CoincidentVertices& coincident);
    ModelMeshRenderData buildFromIndices(std::span<const std::uint32_t> numbers);
    GLSLAttributeArray& replaceTangents();
    Vector firstCoordsOf(std::size_t vertex) const;
    bool areListsComplete() const;
    ModelMeshRenderData startRecord(std::size_t vertexCount, bool isFullyWritten) const;
    void finishRecord(ModelMeshRenderData& record, std::span<const std::uint32_t> numbers,
                      std::span<const std::uint32_t> copies) const;
    std::uint32_t colorBytes() const;
};

} // namespace Vantrel
