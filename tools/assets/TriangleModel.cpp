#include "tools/assets/TriangleModel.h"

namespace Assets {

std::uint32_t TriangleModel::addVertex(const Point& place, const TexturePoint& onTexture) {
    vertices.push_back(place);
    texturePoints.push_back(onTexture);
    return static_cast<std::uint32_t>(vertices.size() - 1);
}

void TriangleModel::addQuad(const Corners& corners, const TexturePoint& lowerLeft,
                            const TexturePoint& upperRight) {
    const std::uint32_t first = addVertex(corners[0], lowerLeft);
    addVertex(corners[1], {upperRight.u, lowerLeft.v});
    addVertex(corners[2], upperRight);
    addVertex(corners[3], {lowerLeft.u, upperRight.v});
    addFace({first, first + 1, first + 2, first + 3});
}

void TriangleModel::addFace(const std::array<std::uint32_t, 4>& corners) {
    triangles.push_back({corners[0], corners[1], corners[2]});
    triangles.push_back({corners[0], corners[2], corners[3]});
}

} // namespace Assets
