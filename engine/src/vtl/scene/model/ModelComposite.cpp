#include "vtl/scene/model/ModelComposite.h"

#include "vtl/gl/shader/GLSLAttributeType.h"

#include <algorithm>

namespace Vantrel {
namespace {

bool isMadeOfTriangles(const ModelMeshRenderDataGenerator& generator) {
    return generator.sourcePrimitive == GL_TRIANGLES;
}

} // namespace

ModelComposite::ModelComposite(std::vector<std::unique_ptr<ModelMeshDataShared>> data)
    : meshData(std::move(data)) {
    hasOtherPrimitives = std::ranges::any_of(
        meshData, [](const auto& mesh) { return !isMadeOfTriangles(mesh->getGenerator()); });
    for (const auto& mesh : meshData) {
        appendMesh(mesh->getGenerator());
    }
}

void ModelComposite::appendMesh(const ModelMeshRenderDataGenerator& generator) {
    const auto first = static_cast<std::uint32_t>(vertices.size());
    firstVertices.push_back(first);
    indices.reserve(indices.size() + generator.indices.size());
    for (const std::uint32_t index : generator.indices) {
        indices.push_back(first + index);
    }
    if (hasOtherPrimitives && isMadeOfTriangles(generator)) {
        trianglesAlone.insert(trianglesAlone.end(),
                              indices.end() - static_cast<std::ptrdiff_t>(generator.indices.size()),
                              indices.end());
    }
    vertices.reserve(vertices.size() + generator.vertices.size());
    for (const Vector& vertex : generator.vertices) {
        vertices.push_back(&vertex);
    }
}

std::optional<std::pair<std::uint32_t, std::uint32_t>>
ModelComposite::findMeshVertex(std::uint32_t index) const {
    if (index >= vertices.size()) {
        return std::nullopt;
    }
    const auto behind = std::upper_bound(firstVertices.begin(), firstVertices.end(), index);
    const auto mesh = static_cast<std::uint32_t>(behind - firstVertices.begin() - 1);
    return std::pair(mesh, index - firstVertices[mesh]);
}

void ModelComposite::populateTangents() {
    for (const auto& mesh : meshData) {
        const auto& arrays = mesh->getGenerator().attributeArrays;
        const auto array =
            std::find_if(arrays.begin(), arrays.end(), [](const GLSLAttributeArray& candidate) {
                return candidate.name == "tangent" && candidate.type == atVEC3;
            });
        if (array == arrays.end()) {
            continue;
        }
        if (!tangents) {
            tangents.emplace();
        }
        for (std::size_t i = 0; i < array->size(); ++i) {
            tangents->push_back(array->getAt(i));
        }
    }
}

std::span<const std::uint32_t> ModelComposite::triangleIndices() const {
    return hasOtherPrimitives ? trianglesAlone : indices;
}

bool ModelComposite::intersectRay(const Vector& start, const Vector& end, bool segmentOnly,
                                  VantrelGeometryRayVsFace& outFace) const {
    if (!tree) {
        tree.emplace(vertices, triangleIndices());
    }
    const auto hit = tree->findNearestHit(start, end, segmentOnly);
    if (!hit) {
        return false;
    }
    const std::uint32_t* const corner = &triangleIndices()[std::size_t{3} * hit->triangle];
    const Vector& v0 = *vertices[corner[0]];
    const Vector& v1 = *vertices[corner[1]];
    const Vector& v2 = *vertices[corner[2]];
    const Vector normal = (v1 - v0).crossProduct(v2 - v0);
    const auto tangentAt = [&](std::uint32_t index) {
        return index < tangents->size() ? (*tangents)[index] : Vector();
    };
    outFace = tangents
                  ? VantrelGeometryRayVsFace(v0, v1, v2, normal, tangentAt(corner[0]), tangentAt(corner[1]),
                                             tangentAt(corner[2]), corner[0], corner[1], corner[2])
                  : VantrelGeometryRayVsFace(v0, v1, v2, normal, corner[0], corner[1], corner[2]);
    outFace.hit = true;
    outFace.intersection = hit->point;
    return true;
}

} // namespace Vantrel
