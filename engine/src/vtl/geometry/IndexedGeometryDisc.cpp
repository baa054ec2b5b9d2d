#include "vtl/geometry/IndexedGeometryDisc.h"

#include <cmath>

namespace Vantrel {
namespace {

constexpr std::uint32_t mostSlices = 32768; // of two vertices each: an index has 16 bits

} // namespace

std::unique_ptr<IndexedGeometryDisc> IndexedGeometryDisc::New(float innerRadius, float outerRadius,
                                                              std::uint32_t slices, bool useNormals,
                                                              bool useTextureCoords) {
    return newBuilt<IndexedGeometryDisc>(innerRadius, outerRadius, slices, useNormals, useTextureCoords);
}

IndexedGeometryDisc::IndexedGeometryDisc(float innerRadius_, float outerRadius_, std::uint32_t slices_,
                                         bool useNormals_, bool useTextureCoords_)
    : IndexedGeometry(useTextureCoords_, useNormals_, false)
    , innerRadius(innerRadius_)
    , outerRadius(outerRadius_)
    , slices(slices_ <= mostSlices ? slices_ : 0) {
}

void IndexedGeometryDisc::buildVertices() {
    constexpr float turn = 6.2831855F;
    vertices.clear();
    for (std::uint32_t slice = 0; slice < slices; ++slice) {
        const float around = turn / static_cast<float>(slices) * static_cast<float>(slice);
        for (const float radius : {outerRadius, innerRadius}) {
            append(vertices, {radius * std::cos(around), radius * std::sin(around), 0.0F});
        }
    }
}

void IndexedGeometryDisc::buildIndices() {
    std::vector<std::uint16_t> corners;
    for (std::uint32_t slice = 0; slice < slices; ++slice) {
        const auto outer = static_cast<std::uint16_t>(2 * slice);
        const auto inner = static_cast<std::uint16_t>(outer + 1);
        const auto nextOuter = static_cast<std::uint16_t>((slice + 1) % slices * 2);
        const auto nextInner = static_cast<std::uint16_t>(nextOuter + 1);
        corners.insert(corners.end(), {outer, nextOuter, inner, inner, nextInner, nextOuter});
    }
    setIndices(corners);
}

void IndexedGeometryDisc::buildTextureCoords() {
    const float across = outerRadius != 0.0F ? 2.0F * outerRadius : 1.0F;
    textureCoords.clear();
    for (std::size_t corner = 0; corner < vertices.size(); corner += 3) {
        textureCoords.push_back(0.5F + vertices[corner] / across);
        textureCoords.push_back(0.5F + vertices[corner + 1] / across);
    }
}

void IndexedGeometryDisc::buildNormals() {
    normals.assign(vertices.size(), 0.0F);
    for (std::size_t corner = 0; corner < normals.size(); corner += 3) {
        normals[corner + 2] = 1.0F;
    }
}

} // namespace Vantrel
