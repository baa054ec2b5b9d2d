#pragma once

#include "vtl/gl/GLHandle.h"
#include "vtl/math/VectorT.h"

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace Vantrel {

class IndexedGeometryRectangularPrism;
class Mat4;
class ShaderCamera;

/**
 * The axis-aligned box of a model or mesh in its own space. A box without points is empty; whoever asks for
 * its size or its place gets a point at the origin. It draws itself for inspection and selection; what that
 * takes is made at the first draw and again after a change, so that a box needs no context before. Main
 * thread.
 */
class BoundingBox {
public:
    /** Empty. */
    BoundingBox();
    /** Copies the corners alone. */
    BoundingBox(const BoundingBox& other);
    BoundingBox& operator=(const BoundingBox& other);
    virtual ~BoundingBox();

    /** Makes the box empty. */
    void reset();
    /** Widens the box so that `point` is in it; a coordinate that is no number widens nothing. */
    void addPoint(const Vector& point);
    /** The same for `count` triples of floats in a row. */
    void addPoints(const float* xyz, std::uint32_t count);
    /** Widens the box so that `other` is in it; an empty one widens nothing. */
    void addBox(const BoundingBox& other);

    /** Whether an axis has no coordinate: there is no point, or none with a number there. */
    bool isEmpty() const;
    /** The least coordinates; the largest float on an axis that has none. */
    Vector getMin() const { return minCorner; }
    /** The greatest coordinates; the lowest float on an axis that has none. */
    Vector getMax() const { return maxCorner; }
    /** The lengths of the sides; zero for an empty box. */
    Vector getLxLyLz() const { return isEmpty() ? Vector() : maxCorner - minCorner; }
    /** The origin for an empty box. */
    Vector getCenter() const { return isEmpty() ? Vector() : (minCorner + maxCorner) / 2.0F; }
    void setLxLyLz(const Vector& lengths, const Vector& center);
    /**
     * Writes the corners in the order +++, ++-, +-+, +--, -++, -+-, --+, --- of their X, Y and Z; those of an
     * empty box are all at the origin.
     */
    void getCorners(std::span<Vector, 8> out) const;
    /** Has the drawing data made again before the next draw: the geometry behind the box has moved. */
    void setDirty() { dirty = true; }

    /**
     * Draws the twelve edges: along X in red, along Y in green, along Z in blue. Below GL 3.2 the current
     * matrices count, and `mvp` doesn't. An empty box draws nothing, nor does one without finite lengths.
     */
    virtual void renderLines(const Mat4& mvp);
    /** The same, seen by `camera`. */
    virtual void render(const ShaderCamera& camera, const Mat4& modelMatrix);
    /**
     * Draws a solid of the box's lengths in one colour, for selection. It is centred on the origin of the
     * model, wherever the lines are. From 3.2 on the caller has bound the selection shader with that colour.
     */
    virtual void renderSolid(const ShaderCamera& camera, std::uint8_t r, std::uint8_t g, std::uint8_t b);

private:
    struct LineVertex {
        std::array<float, 3> position;
        std::array<std::uint8_t, 3> color;
        std::uint8_t unused = 0;
    };
    static_assert(sizeof(LineVertex) == 16);

    static constexpr std::uint8_t vertexCount = 24;
    static constexpr std::uint8_t indexCount = 24;

    /** Makes the drawing data anew where something has changed; false for a box that can't be drawn. */
    bool prepareDrawing();
    void rebuild();
    void buildEdges();
    void addEdge(const std::array<float, 3>& from, const std::array<float, 3>& to,
                 const std::array<std::uint8_t, 3>& color);
    void sendToCard();
    void renderLinesWithShader(const Mat4& mvp) const;
    void renderLinesFixedFunction() const;

    bool dirty = true;
    GLVertexArray vao;
    GLBuffer vbo;
    GLBuffer ibo;
    std::vector<LineVertex> vertices;
    std::vector<std::uint8_t> indices;
    Vector minCorner;
    Vector maxCorner;
    std::unique_ptr<IndexedGeometryRectangularPrism> solid;
};

} // namespace Vantrel
