#pragma once

#include "vtl/math/VantrelGeometryPlane.h"
#include "vtl/math/VectorT.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace Vantrel {

/** What the line tests answer. */
enum class LineIntersection : std::uint8_t {
    crossing = 0, ///< the line meets the plane, or the segment the box's surface
    parallel = 1, ///< the line runs beside the plane
    inPlane = 3,  ///< the line lies in the plane
    inside = 6,   ///< the whole segment is in the box
    none = 7,     ///< the segment ends short of the plane, or misses the box
};

/**
 * Where the line through `start` and `end` meets `plane`: `crossing`, `parallel`, `inPlane` or, with
 * `segmentOnly` and a point that isn't between the two, `none`. Only for a `crossing` are `outPoint` and
 * `outT`, which may be null, written: the point is `start` + `outT` (`end` - `start`).
 */
LineIntersection intersectLinePlane(const Vector& start, const Vector& end, const VantrelGeometryPlane& plane,
                                    Vector& outPoint, bool segmentOnly, float* outT);

/**
 * Where the segment from `start` to `end` is in the box with sides of `lengths` about the origin: `inside`,
 * `crossing` or `none`.
 *
 * The part in the box runs from `outFirst` to `outSecond`, which `none` leaves alone. `outEnters` and
 * `outLeaves` tell which of the two ends lie on the surface; for a `crossing` from inside `outEnters` is left
 * as it was, and for one that ends inside `outLeaves`. A segment that touches an edge or a corner enters and
 * leaves there; one that goes through an edge into the box may be told so too, since that point counts for
 * both faces and no third is looked for.
 */
LineIntersection intersectLineAABB(const Vector& start, const Vector& end, const Vector& lengths,
                                   Vector& outFirst, Vector& outSecond, bool& outEnters, bool& outLeaves);

/** Whether `point` is behind or on each plane. */
bool isPointInAABB(const Vector& point, std::span<const VantrelGeometryPlane, 6> planes);

/**
 * Whether `point`, which is taken to lie in the plane of a face of the box of `halfLengths` about the origin,
 * is in that face, its edges included. The planes 0 to 5 are those of +X, -Y, -X, +Y, -Z and +Z; in any other
 * there is no face.
 */
bool isPointInAABBFace(const Vector& point, const Vector& halfLengths, std::size_t planeIndex);

/** Whether `point`, which is taken to lie in the triangle's plane, is in the triangle, its edges included. */
bool isPointInTriangle(const Vector& point, const Vector& a, const Vector& b, const Vector& c);

} // namespace Vantrel
