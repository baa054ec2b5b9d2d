#include "vtl/geometry/IndexedGeometryAxes.h"

#include <array>

namespace Vantrel {

std::unique_ptr<IndexedGeometryAxes> IndexedGeometryAxes::New(const Vector& extent) {
    return newBuilt<IndexedGeometryAxes>(extent);
}

std::unique_ptr<IndexedGeometryAxes> IndexedGeometryAxes::New(float extent) {
    return New(Vector(extent, extent, extent));
}

IndexedGeometryAxes::IndexedGeometryAxes(const Vector& extent_)
    : IndexedGeometry(false, false, true), extent(extent_) {
    primitive = GL_LINES;
}

void IndexedGeometryAxes::buildVertices() {
    vertices.assign(18, 0.0F); // the three ends, then the origin for each
    vertices[0] = extent.x;
    vertices[4] = extent.y;
    vertices[8] = extent.z;
}

void IndexedGeometryAxes::buildIndices() {
    setIndices(std::array<std::uint16_t, 6>{3, 0, 4, 1, 5, 2});
}

void IndexedGeometryAxes::buildColors() {
    constexpr std::array<std::uint8_t, 12> redGreenBlue{255, 0, 0, 255, 0, 255, 0, 255, 0, 0, 255, 255};
    colors.assign(redGreenBlue.begin(), redGreenBlue.end());
    colors.insert(colors.end(), redGreenBlue.begin(), redGreenBlue.end());
}

} // namespace Vantrel
