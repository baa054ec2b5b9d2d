#pragma once

#include "vtl/math/VectorT.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>

namespace Vantrel {

/** Where a line meets a triangle of a list. */
struct TriangleHit {
    std::uint32_t triangle = 0;
    Vector point;
    /** From the start of the line. */
    float distanceSquared = 0.0F;
};

/**
 * Triangles as triples of indices into a list of vertices, and where a line hits them first. Both lists are
 * borrowed. A triangle without three vertices can't be hit; an incomplete last triple is none.
 */
class TriangleList {
public:
    using Corners = std::array<Vector, 3>;

    TriangleList(std::span<const Vector* const> vertexList, std::span<const std::uint32_t> indexList)
        : vertices(vertexList), indices(indexList) {}

    std::uint32_t size() const { return static_cast<std::uint32_t>(indices.size() / 3); }
    /** The corners of a triangle; nothing where one of them is missing or null. */
    std::optional<Corners> cornersOf(std::uint32_t triangle) const;
    /** The cross product of two edges, not normalised. */
    static Vector normalOf(const Corners& corners);

    /**
     * Where the line through `start` and `end`, or with `segmentOnly` the part between them, hits that
     * triangle. All of it is computed in single precision.
     */
    std::optional<TriangleHit> findHit(std::uint32_t triangle, const Vector& start, const Vector& end,
                                       bool segmentOnly) const;
    /**
     * The hit nearest to `start`, which without `segmentOnly` may be behind it; of equally near ones that of
     * the first triangle. Tries every triangle.
     */
    std::optional<TriangleHit> findNearestHit(const Vector& start, const Vector& end, bool segmentOnly) const;
    /** Replaces `nearest` by `hit` if that is nearer, or as near and of an earlier triangle. */
    static void keepNearer(std::optional<TriangleHit>& nearest, const std::optional<TriangleHit>& hit);

private:
    std::span<const Vector* const> vertices;
    std::span<const std::uint32_t> indices;
};

} // namespace Vantrel
