#include "vtl/geometry/IndexedGeometrySphere.h"

#include <cmath>

namespace Vantrel {
namespace {

/** How far place `index` of `count` is from the first, as a share of the way to the last. */
float share(std::uint32_t index, std::uint32_t count) {
    return static_cast<float>(index) / static_cast<float>(count - 1);
}

} // namespace

std::unique_ptr<IndexedGeometrySphere> IndexedGeometrySphere::New(float radius, std::uint32_t rings,
                                                                  std::uint32_t sectors, bool useNormals,
                                                                  bool useTextureCoords) {
    return newBuilt<IndexedGeometrySphere>(radius, rings, sectors, useNormals, useTextureCoords);
}

IndexedGeometrySphere::IndexedGeometrySphere(float radius_, std::uint32_t rings_, std::uint32_t sectors_,
                                             bool useNormals_, bool useTextureCoords_)
    : IndexedGeometry(useTextureCoords_, useNormals_, false)
    , radius(radius_)
    , rings(rings_)
    , sectors(sectors_) {
    if (rings < 2 || sectors < 2 || !isGridAffordable(rings, sectors)) {
        rings = sectors = 0;
    }
}

void IndexedGeometrySphere::buildVertices() {
    vertices.clear();
    for (std::uint32_t ring = 0; ring < rings; ++ring) {
        for (std::uint32_t sector = 0; sector < sectors; ++sector) {
            append(vertices, direction(ring, sector) * radius);
        }
    }
}

void IndexedGeometrySphere::buildIndices() {
    std::vector<std::uint32_t> corners;
    for (std::uint32_t below = 0; below + sectors < numVertices; ++below) {
        const std::uint32_t above = below + sectors;
        if (above + 1 < numVertices) { // behind the last column there are triangles of no area anyway
            corners.insert(corners.end(), {above, above + 1, below + 1, above, below + 1, below});
        }
    }
    setIndices(corners);
}

void IndexedGeometrySphere::buildTextureCoords() {
    textureCoords.clear();
    for (std::uint32_t ring = 0; ring < rings; ++ring) {
        for (std::uint32_t sector = 0; sector < sectors; ++sector) {
            textureCoords.insert(textureCoords.end(), {-share(sector, sectors), share(ring, rings)});
        }
    }
}

void IndexedGeometrySphere::buildNormals() {
    normals.clear();
    for (std::uint32_t ring = 0; ring < rings; ++ring) {
        for (std::uint32_t sector = 0; sector < sectors; ++sector) {
            append(normals, direction(ring, sector));
        }
    }
}

Vector IndexedGeometrySphere::direction(std::uint32_t ring, std::uint32_t sector) const {
    constexpr float halfTurn = 3.1415927F;
    constexpr float turn = 6.2831855F;
    constexpr float quarterTurn = 1.5707964F;
    const float fromPole = halfTurn * share(ring, rings);
    const float around = turn * share(sector, sectors);
    return {std::sin(fromPole) * std::cos(around), std::sin(fromPole - quarterTurn),
            std::sin(fromPole) * std::sin(around)};
}

} // namespace Vantrel
