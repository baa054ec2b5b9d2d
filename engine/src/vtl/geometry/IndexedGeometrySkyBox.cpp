#include "vtl/geometry/IndexedGeometrySkyBox.h"

#include <array>

namespace Vantrel {
namespace {

struct Corner {
    /** In halves of an edge. */
    std::array<float, 3> position;
    /** In squares of the strip, and of its height. */
    float u;
    float v;
};

/** In squares: the strip's last side stops short of the floor's square, which would shine through. */
constexpr float almostFour = 4.0F - 0.0006F;

/** Four for each of the faces +Y, +X, -Y, -X, floor, top. */
constexpr std::array<Corner, 24> corners{{
    {{-1, 1, -1}, 0, 0},          {{1, 1, -1}, 1, 0},   {{1, 1, 1}, 1, 1},
    {{-1, 1, 1}, 0, 1},           {{1, 1, -1}, 1, 0},   {{1, -1, -1}, 2, 0},
    {{1, -1, 1}, 2, 1},           {{1, 1, 1}, 1, 1},    {{-1, -1, -1}, 3, 0},
    {{1, -1, -1}, 2, 0},          {{1, -1, 1}, 2, 1},   {{-1, -1, 1}, 3, 1},
    {{-1, 1, -1}, almostFour, 0}, {{-1, -1, -1}, 3, 0}, {{-1, -1, 1}, 3, 1},
    {{-1, 1, 1}, almostFour, 1},  {{1, 1, -1}, 5, 0},   {{-1, 1, -1}, 5, 1},
    {{1, -1, -1}, 4, 0},          {{-1, -1, -1}, 4, 1}, {{1, 1, 1}, 5, 0},
    {{-1, 1, 1}, 5, 1},           {{1, -1, 1}, 6, 0},   {{-1, -1, 1}, 6, 1},
}};

} // namespace

std::unique_ptr<IndexedGeometrySkyBox> IndexedGeometrySkyBox::New(float halfEdge) {
    return newBuilt<IndexedGeometrySkyBox>(halfEdge);
}

void IndexedGeometrySkyBox::buildVertices() {
    vertices.clear();
    for (const Corner& corner : corners) {
        append(vertices, Vector(corner.position.data()) * halfEdge);
    }
}

void IndexedGeometrySkyBox::buildIndices() {
    constexpr std::array<std::uint16_t, 6> ofSide{0, 1, 2, 0, 2, 3};
    constexpr std::array<std::uint16_t, 6> ofFloorOrTop{0, 1, 2, 1, 2, 3};
    constexpr std::uint16_t faces = 6;
    constexpr std::uint16_t sides = 4;
    std::vector<std::uint16_t> numbers;
    for (std::uint16_t face = 0; face < faces; ++face) {
        for (const std::uint16_t corner : face < sides ? ofSide : ofFloorOrTop) {
            numbers.push_back(static_cast<std::uint16_t>(4 * face + corner));
        }
    }
    setIndices(numbers);
}

void IndexedGeometrySkyBox::buildTextureCoords() {
    constexpr float squares = 6.0F;
    textureCoords.clear();
    for (const Corner& corner : corners) {
        textureCoords.push_back(corner.u / squares);
        textureCoords.push_back(corner.v);
    }
}

} // namespace Vantrel
