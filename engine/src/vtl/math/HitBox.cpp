#include "vtl/math/HitBox.h"

#include <algorithm>
#include <cmath>

namespace Vantrel {
namespace {

/** By how much an operation in single precision may be wrong, as a part of its result. */
constexpr double rounding = 0x1p-24;

// What follows is the worst that rounding can do in TriangleList::findHit. L is the longest edge, s the
// least height of the triangle as a part of L, T the sine of the angle between its normal and those of single
// precision, r the distance of the hit from a corner, and M and S are the largest coordinates of the triangle
// and of the line's start.
// - The hit is out of the computed plane by h = (18 M + 16 S) `rounding`, however small the angle between
//   line and plane, since a wrong parameter moves it along the line. So it is out of the true plane by
//   h + 1.1 T r.
// - Each of the three tests accepts points outside of its edge by 11 `rounding` r, and by 1.1 T times their
//   height over the plane.
// - A point outside of each edge by w is outside of the triangle by 2 w/s, at its narrowest corner.
// - The hit is beside the line by (2 M + S) `rounding`, and boxes are rounded.
// Since r is at most L and the distance d from the triangle, these, put into each other, make d at most
// (1 + 2.2 T/s) h + (L + d) spread, which is solved for d where the spread is small.

constexpr double greatestSpread = 0.2;

double spreadOf(double height, double tilt) {
    return 1.1 * tilt + (22 * rounding + 2.42 * tilt * tilt) / height;
}

/** Of the larger coordinate. */
double wideningByPlace(double height, double tilt) {
    return 32 * rounding * (1 + 2.2 * tilt / height);
}

// Between these lengths of an edge, and up to this coordinate, no product overflows, and none underflows that
// matters: the longest has four factors.
constexpr double leastLength = 1e-6;
constexpr double greatestLength = 1e5;
constexpr float greatestCoordinate = 1e18F;

VectorD inDoublePrecision(const Vector& v) {
    return {v.x, v.y, v.z};
}

float largestCoordinateOf(const Vector& v) {
    return std::max({std::abs(v.x), std::abs(v.y), std::abs(v.z)});
}

/** The largest sine of the angles between `normal` and what single precision has for it at the corners. */
double tiltOf(const VectorD& normal, const TriangleList::Corners& corners) {
    const auto& [a, b, c] = corners;
    double tilt = 0.0;
    for (const TriangleList::Corners& turned : {corners, {b, c, a}, {c, a, b}}) {
        const VectorD rounded = inDoublePrecision(TriangleList::normalOf(turned));
        if (!(rounded.dotProduct(normal) > 0.0)) {
            return 1.0;
        }
        const double sineSquared = rounded.crossProduct(normal).magnitudeSquared() /
                                   (rounded.magnitudeSquared() * normal.magnitudeSquared());
        tilt = std::max(tilt, std::sqrt(sineSquared));
    }
    return tilt;
}

HitBox boxAbout(const TriangleList::Corners& corners, double widening) {
    HitBox box;
    for (const Vector& corner : corners) {
        const std::array<double, 3> at{corner.x, corner.y, corner.z};
        for (std::size_t axis = 0; axis < at.size(); ++axis) {
            box.low[axis] = std::min(box.low[axis], static_cast<float>(at[axis] - widening));
            box.high[axis] = std::max(box.high[axis], static_cast<float>(at[axis] + widening));
        }
    }
    return box;
}

} // namespace

std::optional<HitBox> HitBox::of(const TriangleList::Corners& corners) {
    const VectorD ab = inDoublePrecision(corners[1]) - inDoublePrecision(corners[0]);
    const VectorD ac = inDoublePrecision(corners[2]) - inDoublePrecision(corners[0]);
    const VectorD normal = ab.crossProduct(ac);
    const double length = std::max({ab.magnitude(), ac.magnitude(), (ac - ab).magnitude()});
    const double height = normal.magnitude() / (length * length);
    const double tilt = tiltOf(normal, corners);
    const double spread = spreadOf(height, tilt);
    const float coordinate = std::max(
        {largestCoordinateOf(corners[0]), largestCoordinateOf(corners[1]), largestCoordinateOf(corners[2])});
    if (length < leastLength || length > greatestLength || coordinate > greatestCoordinate ||
        !(spread <= greatestSpread)) {
        return std::nullopt;
    }
    const double byPlace = wideningByPlace(height, tilt);
    HitBox box = boxAbout(corners, 1.25 * spread * length + byPlace * coordinate);
    box.growth = static_cast<float>(byPlace);
    return box;
}

bool HitBox::holdsFor(const Vector& start, const Vector& direction) {
    return largestCoordinateOf(start) <= greatestCoordinate &&
           largestCoordinateOf(direction) <= greatestCoordinate;
}

void HitBox::add(const HitBox& other) {
    for (std::size_t axis = 0; axis < low.size(); ++axis) {
        low[axis] = std::min(low[axis], other.low[axis]);
        high[axis] = std::max(high[axis], other.high[axis]);
    }
    growth = std::max(growth, other.growth);
}

} // namespace Vantrel
