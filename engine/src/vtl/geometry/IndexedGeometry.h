#pragma once

#include "vtl/gl/GLHandle.h"
#include "vtl/gl/IndexArray.h"
#include "vtl/math/VectorT.h"
#include "vtl/math/vtlColor4f.h"

#include <GL/glew.h>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <utility>
#include <vector>

namespace Vantrel {

/**
 * A shape that is computed from a few numbers. It keeps one array per kind of vertex data, so that colours
 * and corners can be rewritten by themselves. `build` makes the arrays and, from GL 3.2 on, the buffers;
 * afterwards only colours and vertices change, never their number. A shape without indices draws nothing.
 * Main thread, with the context current.
 */
class IndexedGeometry {
public:
    IndexedGeometry(bool useTextureCoords_, bool useNormals_, bool useColors_)
        : useTextureCoords(useTextureCoords_), useNormals(useNormals_), useColors(useColors_) {}
    IndexedGeometry(const IndexedGeometry&) = delete;
    IndexedGeometry& operator=(const IndexedGeometry&) = delete;
    virtual ~IndexedGeometry() = default;

    /**
     * Draws with what the caller has set up: the bound shader, or the fixed-function state. Without normals
     * the shape is unlit.
     */
    virtual void render() const;
    virtual void renderVertexArrayObject() const;
    virtual void renderClientArrays() const;
    /** Draws in one colour; from 3.2 on in that of the selection shader, which the caller has bound. */
    virtual void renderSelection(std::uint8_t r, std::uint8_t g, std::uint8_t b) const;
    /** GL_TRIANGLES, GL_LINES, ... */
    virtual void setPrimitive(GLenum mode) { primitive = mode; }
    /** Sends the changed colours, where they are on the card. */
    virtual void updateColorsOnCard() const;
    virtual void updateVerticesOnCard() const;
    /** Fills the arrays, counts the vertices and makes the buffers. */
    virtual void build();
    /** Does nothing below 3.2, where the arrays themselves are drawn. */
    virtual void createBuffers();
    /** Takes the attribute locations from the default shader instead of the fixed ones. */
    virtual void bindAttributesToDefaultShader();

    /** The corners as they are now, three floats each. */
    std::span<const float> getVertices() const { return vertices; }

    /**
     * What the shape is drawn in from 3.2 on where it has no colours of its own. Below, the current colour
     * counts, which whoever binds a skin has set by that.
     */
    vtlColor4f plainColor;

protected:
    /** A shape whose constructor takes `arguments`, built. */
    template <class Shape, class... Arguments>
    static std::unique_ptr<Shape> newBuilt(Arguments&&... arguments) {
        auto shape = std::make_unique<Shape>(std::forward<Arguments>(arguments)...);
        shape->build();
        return shape;
    }

    /** Whether a grid of so many vertices is one that a shape makes; a finer one would only take memory. */
    static constexpr bool isGridAffordable(std::uint64_t rows, std::uint64_t columns) {
        constexpr std::uint64_t mostVertices = 1U << 22U;
        return rows <= mostVertices && columns <= mostVertices && rows * columns <= mostVertices;
    }

    virtual void buildVertices() = 0;
    virtual void buildIndices() = 0;
    virtual void buildTextureCoords() {}
    virtual void buildNormals() {}
    virtual void buildColors() {}

    static void append(std::vector<float>& values, const Vector& vector) {
        values.insert(values.end(), {vector.x, vector.y, vector.z});
    }

    /** Takes over the indices together with their number and type. */
    void setIndices(std::span<const std::uint8_t> values) { storeIndices(values, GL_UNSIGNED_BYTE); }
    void setIndices(std::span<const std::uint16_t> values) { storeIndices(values, GL_UNSIGNED_SHORT); }
    void setIndices(std::span<const std::uint32_t> values) { storeIndices(values, GL_UNSIGNED_INT); }
    void setIndices(const IndexArray& array);

    /** Red, green, blue and alpha of each vertex. */
    std::vector<std::uint8_t> colors;
    /** Three floats per vertex. */
    std::vector<float> normals;
    /** Two floats per vertex. */
    std::vector<float> textureCoords;
    /** Three floats per vertex. */
    std::vector<float> vertices;
    std::uint32_t numVertices = 0;
    /** Of `indexType`. */
    std::vector<std::byte> indices;
    std::uint32_t numIndices = 0;
    bool useTextureCoords;
    bool useNormals;
    bool useColors;
    GLenum primitive = GL_TRIANGLES;
    GLenum indexType = GL_UNSIGNED_BYTE;

private:
    template <class Index>
    void storeIndices(std::span<const Index> values, GLenum type) {
        const auto bytes = std::as_bytes(values);
        indices.assign(bytes.begin(), bytes.end());
        numIndices = static_cast<std::uint32_t>(values.size());
        indexType = type;
    }
    void fillBuffers();
    void pointAttributes(GLboolean areColorsNormalized) const;
    /** Draws the corners alone; the caller keeps the client arrays. */
    void drawVertexArray() const;

    std::int32_t positionLocation = 0;
    std::int32_t normalLocation = 0;
    std::int32_t colorLocation = 0;
    std::int32_t textureCoordLocation = 0;
    GLVertexArray vertexArrayObject;
    GLBuffer indexBuffer;
    GLBuffer vertexBuffer;
    GLBuffer normalBuffer;
    GLBuffer colorBuffer;
    GLBuffer textureCoordBuffer;
};

} // namespace Vantrel
