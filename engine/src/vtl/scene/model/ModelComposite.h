#pragma once

#include "vtl/math/TriangleTree.h"
#include "vtl/math/VantrelGeometryRayVsFace.h"
#include "vtl/math/VectorT.h"
#include "vtl/mesh/ModelMeshDataShared.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace Vantrel {

/**
 * The geometry that all instances of a model share: the data of each mesh, and the triangles of all of them
 * in one list for questions about the whole. Vertices stay with the meshes' generators, where they must stay
 * as they are. Main thread.
 */
class ModelComposite {
public:
    /** Takes the meshes over; none of them is null. */
    explicit ModelComposite(std::vector<std::unique_ptr<ModelMeshDataShared>> data);

    const std::vector<std::unique_ptr<ModelMeshDataShared>>& getMeshData() const { return meshData; }
    /** Of all meshes, mesh after mesh. */
    const std::vector<const Vector*>& getVertices() const { return vertices; }
    /** Of all meshes, into the vertices above. */
    const std::vector<std::uint32_t>& getIndices() const { return indices; }
    /** Null when no mesh has tangents. */
    const std::vector<Vector>* getTangents() const { return tangents ? &*tangents : nullptr; }
    /** Mesh number and vertex of that mesh for a place in the vertices; none for one past the end. */
    std::optional<std::pair<std::uint32_t, std::uint32_t>> findMeshVertex(std::uint32_t index) const;

    /** Appends the tangents, three floats each under the name "tangent", that the meshes have by now. */
    void populateTangents();
    /**
     * Finds the triangle nearest to `start` on the line to `end`, or beyond either where `segmentOnly` is
     * false. Fills `outFace` and answers true when there is one. The first call sorts the triangles.
     */
    bool intersectRay(const Vector& start, const Vector& end, bool segmentOnly,
                      VantrelGeometryRayVsFace& outFace) const;

private:
    void appendMesh(const ModelMeshRenderDataGenerator& generator);
    /** The indices of those meshes that are made of triangles. */
    std::span<const std::uint32_t> triangleIndices() const;

    std::vector<std::unique_ptr<ModelMeshDataShared>> meshData;
    std::vector<const Vector*> vertices;
    std::vector<std::uint32_t> indices;
    /** Where the vertices of each mesh begin. */
    std::vector<std::uint32_t> firstVertices;
    std::optional<std::vector<Vector>> tangents;
    /** Without those of lines and points; empty where there are none of these. */
    std::vector<std::uint32_t> trianglesAlone;
    bool hasOtherPrimitives = false;
    mutable std::optional<TriangleTree> tree;
};

} // namespace Vantrel
