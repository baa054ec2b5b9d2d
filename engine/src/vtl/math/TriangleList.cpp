#include "vtl/math/TriangleList.h"

#include "vtl/math/GeometryIntersection.h"

#include <limits>

namespace Vantrel {

std::optional<TriangleList::Corners> TriangleList::cornersOf(std::uint32_t triangle) const {
    Corners corners;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const std::uint32_t index = indices[std::size_t{3} * triangle + i];
        if (index >= vertices.size() || vertices[index] == nullptr) {
            return std::nullopt;
        }
        corners[i] = *vertices[index];
    }
    return corners;
}

Vector TriangleList::normalOf(const Corners& corners) {
    return (corners[1] - corners[0]).crossProduct(corners[2] - corners[0]);
}

std::optional<TriangleHit> TriangleList::findHit(std::uint32_t triangle, const Vector& start,
                                                 const Vector& end, bool segmentOnly) const {
    const auto corners = cornersOf(triangle);
    if (!corners) {
        return std::nullopt;
    }
    const auto& [a, b, c] = *corners;
    const Vector normal = normalOf(*corners);
    const VantrelGeometryPlane plane(normal.x, normal.y, normal.z, normal.dotProduct(a));
    TriangleHit hit{.triangle = triangle, .point = {}, .distanceSquared = 0.0F};
    if (intersectLinePlane(start, end, plane, hit.point, segmentOnly, nullptr) !=
            LineIntersection::crossing ||
        !isPointInTriangle(hit.point, a, b, c)) {
        return std::nullopt;
    }
    hit.distanceSquared = (hit.point - start).magnitudeSquared();
    return hit.distanceSquared < std::numeric_limits<float>::max() ? std::optional(hit) : std::nullopt;
}

std::optional<TriangleHit> TriangleList::findNearestHit(const Vector& start, const Vector& end,
                                                        bool segmentOnly) const {
    std::optional<TriangleHit> nearest;
    for (std::uint32_t triangle = 0; triangle < size(); ++triangle) {
        keepNearer(nearest, findHit(triangle, start, end, segmentOnly));
    }
    return nearest;
}

void TriangleList::keepNearer(std::optional<TriangleHit>& nearest, const std::optional<TriangleHit>& hit) {
    if (hit && (!nearest || hit->distanceSquared < nearest->distanceSquared ||
                (hit->distanceSquared == nearest->distanceSquared && hit->triangle < nearest->triangle))) {
        nearest = hit;
    }
}

} // namespace Vantrel
