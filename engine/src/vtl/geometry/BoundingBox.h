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
 * The axis-aligned box of a model or mesh in its own space. A box without points is empty. It draws itself
 * for inspection and selection; what that takes is made at the first draw and again after a change, so that a
 * box needs no context before. Main thread.
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

    /** The least coordinates; of an empty box the largest float. */
    Vector getMin() const { return minCorner; }
    /** The greatest coordinates; of an empty box the lowest float. */
    Vector getMax() const { return maxCorner; }
    /** The lengths of the sides; hugely negative for an empty box. */
    Vector getLxLyLz() const { return maxCorner - minCorner; }
    void setLxLyLz(const Vector& lengths, const Vector& center);
    /** Writes the corners in the order +++, ++-, +-+, +--, -++, -+-, --+, --- of their X, Y and Z. */
    void getCorners(std::span<Vector, 8> out) const;
    /** Has the drawing data made again before the next draw: the geometry behind the box has moved. */
    void setDirty() { dirty = true; }

    /**
     * Draws the twelve edges: along X in red, along Y in green, along Z in blue. Below GL 3.2 the current
     * matrices count, and `mvp` doesn't. A box without finite lengths, as an empty one, draws nothing.
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

    Vector getCenter() const { return (minCorner + maxCorner) / 2.0F; }
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
