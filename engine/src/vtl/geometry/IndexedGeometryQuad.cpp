#include "vtl/geometry/IndexedGeometryQuad.h"

#include "vtl/math/vtlColor4ub.h"

#include <array>
#include <utility>

namespace Vantrel {
namespace {

constexpr std::uint8_t planeXZ = 1;
constexpr std::uint8_t planeYZ = 2;

/** The corners in units of half the width and half the height. */
constexpr std::array<std::pair<float, float>, 4> corners{{{-1, -1}, {-1, 1}, {1, 1}, {1, -1}}};

} // namespace

std::unique_ptr<IndexedGeometryQuad> IndexedGeometryQuad::New(std::uint8_t orientation, float width,
                                                              float height, const Vector& color,
                                                              bool useTextureCoords, bool useNormals,
                                                              bool useColors) {
    return newBuilt<IndexedGeometryQuad>(orientation, width, height, color, useTextureCoords, useNormals,
                                         useColors);
}

IndexedGeometryQuad::IndexedGeometryQuad(std::uint8_t orientation_, float width, float height,
                                         const Vector& color_, bool useTextureCoords_, bool useNormals_,
                                         bool useColors_)
    : IndexedGeometry(useTextureCoords_, useNormals_, useColors_), orientation(orientation_), color(color_) {
    setSize(width, height);
}

void IndexedGeometryQuad::updateCorners() {
    vertices.clear();
    for (const auto& [across, up] : corners) {
        append(vertices, inPlane(across * scale.x * halfWidth, up * scale.y * halfHeight));
    }
    updateVerticesOnCard();
}

void IndexedGeometryQuad::setSize(float width, float height) {
    halfWidth = width * 0.5F;
    halfHeight = height * 0.5F;
}

void IndexedGeometryQuad::buildVertices() {
    updateCorners();
}

void IndexedGeometryQuad::buildIndices() {
    setIndices(std::array<std::uint16_t, 6>{2, 1, 0, 0, 3, 2});
}

void IndexedGeometryQuad::buildTextureCoords() {
    textureCoords.clear();
    for (const auto& [across, up] : corners) {
        textureCoords.push_back(0.5F + across * textureScale.x * 0.5F);
        textureCoords.push_back(0.5F + up * textureScale.y * 0.5F);
    }
}

void IndexedGeometryQuad::buildNormals() {
    const Vector normal = orientation == planeXZ ? unitY : orientation == planeYZ ? unitX : unitZ;
    normals.clear();
    for (std::size_t corner = 0; corner < corners.size(); ++corner) {
        append(normals, normal);
    }
}

void IndexedGeometryQuad::buildColors() {
    const vtlColor4ub bytes(color.x, color.y, color.z, 1.0F);
    colors.clear();
    for (std::size_t corner = 0; corner < corners.size(); ++corner) {
        colors.insert(colors.end(), {bytes.r, bytes.g, bytes.b, bytes.a});
    }
}

Vector IndexedGeometryQuad::inPlane(float first, float second) const {
    switch (orientation) {
    case planeXZ:
        return {first, 0.0F, second};
    case planeYZ:
        return {0.0F, first, second};
    default:
        return {first, second, 0.0F};
    }
}

} // namespace Vantrel
