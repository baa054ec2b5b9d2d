#pragma once

#include "vtl/math/VectorT.h"

#include <cstdint>

namespace Vantrel {

/** What a ray test tells about the triangle that it tried. */
class VantrelGeometryRayVsFace {
public:
    /** All zero and no hit. */
    VantrelGeometryRayVsFace() = default;
    VantrelGeometryRayVsFace(const Vector& v0, const Vector& v1, const Vector& v2, const Vector& normal,
                             std::uint32_t i0, std::uint32_t i1, std::uint32_t i2)
        : vertex0(v0), vertex1(v1), vertex2(v2), faceNormal(normal), index0(i0), index1(i1), index2(i2) {}
    VantrelGeometryRayVsFace(const Vector& v0, const Vector& v1, const Vector& v2, const Vector& normal,
                             const Vector& t0, const Vector& t1, const Vector& t2, std::uint32_t i0,
                             std::uint32_t i1, std::uint32_t i2)
        : vertex0(v0)
        , vertex1(v1)
        , vertex2(v2)
        , faceNormal(normal)
        , hasVertexTangents(true)
        , tangent0(t0)
        , tangent1(t1)
        , tangent2(t2)
        , index0(i0)
        , index1(i1)
        , index2(i2) {}
    virtual ~VantrelGeometryRayVsFace() = default;

    Vector vertex0;
    Vector vertex1;
    Vector vertex2;
    /** The cross product of two edges, as long as the triangle makes it. */
    Vector faceNormal;
    /** Whether the tangents, one per vertex, have been filled. */
    bool hasVertexTangents = false;
    Vector tangent0;
    Vector tangent1;
    Vector tangent2;
    /** False until a hit has been stored. */
    bool hit = false;
    Vector intersection;
    /** Places of the vertices in the composite vertex list. */
    std::uint32_t index0 = 0;
    std::uint32_t index1 = 0;
    std::uint32_t index2 = 0;
};

} // namespace Vantrel
