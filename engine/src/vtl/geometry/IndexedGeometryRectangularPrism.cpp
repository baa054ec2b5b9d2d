#include "vtl/geometry/IndexedGeometryRectangularPrism.h"

#include <array>

namespace Vantrel {
namespace {

using Signs = std::array<float, 3>;

struct Face {
    Signs normal;
    /** Of the half lengths, corner after corner. */
    std::array<Signs, 4> corners;
};

constexpr std::array<Face, 6> faces{{
    {{1, 0, 0}, {{{1, -1, -1}, {1, 1, -1}, {1, -1, 1}, {1, 1, 1}}}},
    {{-1, 0, 0}, {{{-1, 1, -1}, {-1, -1, -1}, {-1, 1, 1}, {-1, -1, 1}}}},
    {{0, 1, 0}, {{{1, 1, -1}, {-1, 1, -1}, {1, 1, 1}, {-1, 1, 1}}}},
    {{0, -1, 0}, {{{-1, -1, -1}, {1, -1, -1}, {-1, -1, 1}, {1, -1, 1}}}},
    {{0, 0, 1}, {{{-1, 1, 1}, {-1, -1, 1}, {1, 1, 1}, {1, -1, 1}}}},
    {{0, 0, -1}, {{{1, 1, -1}, {1, -1, -1}, {-1, 1, -1}, {-1, -1, -1}}}},
}};

/** The two triangles of a face. */
constexpr std::array<std::uint8_t, 6> cornersOfFace{0, 1, 2, 2, 1, 3};
constexpr std::array<float, 8> textureCoordsOfFace{0, 0, 1, 0, 0, 1, 1, 1};

} // namespace

std::unique_ptr<IndexedGeometryRectangularPrism>
IndexedGeometryRectangularPrism::New(const Vector& lengths, bool useNormals, bool useTextureCoords) {
    return newBuilt<IndexedGeometryRectangularPrism>(lengths, useNormals, useTextureCoords);
}

void IndexedGeometryRectangularPrism::buildVertices() {
    vertices.clear();
    for (const Face& face : faces) {
        for (const Signs& corner : face.corners) {
            vertices.insert(vertices.end(), {corner[0] * halfLengths.x, corner[1] * halfLengths.y,
                                             corner[2] * halfLengths.z});
        }
    }
}

void IndexedGeometryRectangularPrism::buildIndices() {
    std::vector<std::uint8_t> corners;
    for (std::size_t face = 0; face < faces.size(); ++face) {
        for (const std::uint8_t corner : cornersOfFace) {
            corners.push_back(static_cast<std::uint8_t>(4 * face + corner));
        }
    }
    setIndices(corners);
}

void IndexedGeometryRectangularPrism::buildTextureCoords() {
    textureCoords.clear();
    for (std::size_t face = 0; face < faces.size(); ++face) {
        textureCoords.insert(textureCoords.end(), textureCoordsOfFace.begin(), textureCoordsOfFace.end());
    }
}

void IndexedGeometryRectangularPrism::buildNormals() {
    normals.clear();
    for (const Face& face : faces) {
        for (std::size_t corner = 0; corner < face.corners.size(); ++corner) {
            normals.insert(normals.end(), face.normal.begin(), face.normal.end());
        }
    }
}

} // namespace Vantrel
