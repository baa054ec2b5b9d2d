#include "vtl/geometry/IndexedGeometryCylinder.h"

#include <cmath>

namespace Vantrel {

std::unique_ptr<IndexedGeometryCylinder> IndexedGeometryCylinder::New(float radiusAtTop, float radiusAtBottom,
                                                                      float height, std::uint32_t slices,
                                                                      std::uint32_t stacks, bool useNormals,
                                                                      bool useTextureCoords) {
    return newBuilt<IndexedGeometryCylinder>(radiusAtTop, radiusAtBottom, height, slices, stacks, useNormals,
                                             useTextureCoords);
}

IndexedGeometryCylinder::IndexedGeometryCylinder(float radiusAtTop_, float radiusAtBottom_, float height_,
                                                 std::uint32_t slices_, std::uint32_t stacks_,
                                                 bool useNormals_, bool useTextureCoords_)
    : IndexedGeometry(useTextureCoords_, useNormals_, false)
    , radiusAtTop(radiusAtTop_)
    , radiusAtBottom(radiusAtBottom_)
    , height(height_)
    , slices(slices_)
    , stacks(stacks_) {
    if (slices < 1 || stacks < 1 || !isGridAffordable(std::uint64_t{stacks} + 1, slices)) {
        slices = stacks = 0;
    }
}

void IndexedGeometryCylinder::buildVertices() {
    vertices.clear();
    for (std::uint32_t ring = 0; ring <= stacks; ++ring) {
        const auto stack = static_cast<float>(ring);
        for (std::uint32_t slice = 0; slice < slices; ++slice) {
            const auto count = static_cast<float>(stacks);
            const float radius = (radiusAtTop - radiusAtBottom) / count * stack + radiusAtBottom;
            const Vector outward = direction(slice) * radius;
            append(vertices, {outward.x, outward.y, height / count * stack - height * 0.5F});
        }
    }
}

void IndexedGeometryCylinder::buildIndices() {
    std::vector<std::uint32_t> corners;
    for (std::uint32_t below = 0; below + slices < numVertices; ++below) {
        const std::uint32_t slice = below % slices;
        const std::uint32_t next = below - slice + (slice + 1) % slices;
        corners.insert(corners.end(), {below, below + slices, next, next, below + slices, next + slices});
    }
    setIndices(corners);
}

void IndexedGeometryCylinder::buildTextureCoords() {
    textureCoords.clear();
    for (std::uint32_t ring = 0; ring <= stacks; ++ring) {
        for (std::uint32_t slice = 0; slice < slices; ++slice) {
            textureCoords.push_back(static_cast<float>(slice) / static_cast<float>(slices));
            textureCoords.push_back(static_cast<float>(ring) / static_cast<float>(stacks));
        }
    }
}

void IndexedGeometryCylinder::buildNormals() {
    normals.clear();
    for (std::uint32_t ring = 0; ring <= stacks; ++ring) {
        for (std::uint32_t slice = 0; slice < slices; ++slice) {
            append(normals, direction(slice));
        }
    }
}

Vector IndexedGeometryCylinder::direction(std::uint32_t slice) const {
    constexpr float turn = 6.2831855F;
    const float around = turn / static_cast<float>(slices) * static_cast<float>(slice);
    return {std::cos(around), std::sin(around), 0.0F};
}

} // namespace Vantrel
