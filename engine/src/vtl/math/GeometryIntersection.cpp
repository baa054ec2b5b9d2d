#include "vtl/math/GeometryIntersection.h"

#include "vtl/math/ScalarComparison.h"

#include <algorithm>
#include <array>

namespace Vantrel {
namespace {

using BoxPlanes = std::array<VantrelGeometryPlane, 6>;

BoxPlanes planesOfBox(const Vector& h) {
    return {
        {{1, 0, 0, h.x}, {0, -1, 0, h.y}, {-1, 0, 0, h.x}, {0, 1, 0, h.y}, {0, 0, -1, h.z}, {0, 0, 1, h.z}}};
}

/** The first two places, in the order of the planes, where a segment meets a face. */
struct FaceHits {
    std::array<Vector, 2> points;
    std::size_t count = 0;
};

FaceHits findFaceHits(const Vector& start, const Vector& end, const Vector& halfLengths,
                      const BoxPlanes& planes) {
    FaceHits hits;
    for (std::size_t i = 0; i < planes.size() && hits.count < hits.points.size(); ++i) {
        Vector point;
        if (intersectLinePlane(start, end, planes[i], point, true, nullptr) == LineIntersection::crossing &&
            isPointInAABBFace(point, halfLengths, i)) {
            hits.points[hits.count++] = point;
        }
    }
    return hits;
}

/** Orders the hits of a segment that starts and ends outside; a single one is both its entry and its exit. */
void orderHits(const Vector& start, const FaceHits& hits, Vector& outFirst, Vector& outSecond) {
    const Vector& first = hits.points[0];
    const Vector& second = hits.points[hits.count - 1];
    const bool isSecondFurther = start.distanceFrom(second) > start.distanceFrom(first);
    outFirst = isSecondFurther ? first : second;
    outSecond = isSecondFurther ? second : first;
}

bool isWithin(float coordinate, float halfLength) {
    return coordinate >= -halfLength && coordinate <= halfLength;
}

/** Whether `p` is on the inner side of both edges that meet in `corner`, as far as `corner` can tell. */
bool isOnInnerSide(const Vector& corner, const Vector& next, const Vector& last, const Vector& p) {
    const Vector edge = corner - next;
    return edge.crossProduct(corner - last).dotProduct(edge.crossProduct(corner - p)) >= 0.0F;
}

} // namespace

LineIntersection intersectLinePlane(const Vector& start, const Vector& end, const VantrelGeometryPlane& plane,
                                    Vector& outPoint, bool segmentOnly, float* outT) {
    const Vector normal = plane.getNormal();
    const Vector direction = end - start;
    const float numerator = plane.d - normal.dotProduct(start);
    const float denominator = normal.dotProduct(direction);
    if (isNearZero(denominator)) {
        return isNearZero(numerator) ? LineIntersection::inPlane : LineIntersection::parallel;
    }
    const float t = numerator / denominator;
    if (segmentOnly && !(t >= 0.0F && t <= 1.0F)) {
        return LineIntersection::none;
    }
    outPoint = start + direction * t;
    if (outT != nullptr) {
        *outT = t;
    }
    return LineIntersection::crossing;
}

LineIntersection intersectLineAABB(const Vector& start, const Vector& end, const Vector& lengths,
                                   Vector& outFirst, Vector& outSecond, bool& outEnters, bool& outLeaves) {
    const Vector halfLengths = lengths / 2.0F;
    const BoxPlanes planes = planesOfBox(halfLengths);
    const bool startInside = isPointInAABB(start, planes);
    const bool endInside = isPointInAABB(end, planes);
    if (startInside && endInside) {
        outEnters = outLeaves = false;
        outFirst = start;
        outSecond = end;
        return LineIntersection::inside;
    }
    const FaceHits hits = findFaceHits(start, end, halfLengths, planes);
    if (hits.count == 0) {
        outEnters = outLeaves = false;
        return LineIntersection::none;
    }
    if (startInside) {
        outLeaves = true;
        outFirst = start;
        outSecond = hits.points[0];
    } else if (endInside) {
        outEnters = true;
        outFirst = hits.points[0];
        outSecond = end;
    } else {
        outEnters = outLeaves = true;
        orderHits(start, hits, outFirst, outSecond);
    }
    return LineIntersection::crossing;
}

bool isPointInAABB(const Vector& point, std::span<const VantrelGeometryPlane, 6> planes) {
    return std::all_of(planes.begin(), planes.end(), [&](const VantrelGeometryPlane& plane) {
        return plane.getNormal().dotProduct(point) <= plane.d;
    });
}

bool isPointInAABBFace(const Vector& point, const Vector& halfLengths, std::size_t planeIndex) {
    const bool isInX = isWithin(point.x, halfLengths.x);
    const bool isInY = isWithin(point.y, halfLengths.y);
    const bool isInZ = isWithin(point.z, halfLengths.z);
    switch (planeIndex) {
    case 0:
    case 2:
        return isInY && isInZ;
    case 1:
    case 3:
        return isInX && isInZ;
    case 4:
    case 5:
        return isInX && isInY;
    default:
        return false;
    }
}

bool isPointInTriangle(const Vector& point, const Vector& a, const Vector& b, const Vector& c) {
    return isOnInnerSide(a, b, c, point) && isOnInnerSide(b, c, a, point) && isOnInnerSide(c, a, b, point);
}

} // namespace Vantrel
