#pragma once

#include "vtl/geometry/IndexedGeometry.h"

#include <cstring>

namespace Vantrel::Tests {

/** What a computed shape has filled its arrays with. */
struct BuiltShape {
    std::vector<std::uint8_t> colors;
    std::vector<float> normals;
    std::vector<float> textureCoords;
    std::vector<float> vertices;
    std::uint32_t numVertices = 0;
    std::vector<std::uint32_t> indices;
    GLenum indexType = 0;
    bool useColors = false;

    Vector vertex(std::size_t index) const { return Vector(&vertices.at(3 * index)); }
    Vector normal(std::size_t index) const { return Vector(&normals.at(3 * index)); }
    /** Of the triangle that begins at that place of the indices: as long as twice its area. */
    Vector doubledArea(std::size_t place) const {
        const Vector a = vertex(indices.at(place));
        return (vertex(indices.at(place + 1)) - a).crossProduct(vertex(indices.at(place + 2)) - a);
    }
};

/** Opens the arrays of a shape. */
template <class Shape>
class OpenShape : public Shape {
public:
    using Shape::Shape;

    BuiltShape arrays() const {
        std::vector<std::uint32_t> numbers(this->numIndices);
        const std::size_t width = sizeOfIndexType(this->indexType);
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            std::memcpy(&numbers[i], &this->indices.at(i * width), width);
        }
        return {this->colors,      this->normals, this->textureCoords, this->vertices,
                this->numVertices, numbers,       this->indexType,     this->useColors};
    }
};

/** Builds a shape without a context. */
template <class Shape>
BuiltShape built(OpenShape<Shape>&& shape) {
    shape.build();
    return shape.arrays();
}

} // namespace Vantrel::Tests
