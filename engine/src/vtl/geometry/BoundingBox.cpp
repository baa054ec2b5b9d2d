#include "vtl/geometry/BoundingBox.h"

#include <limits>

namespace Vantrel {
namespace {

constexpr float largest = std::numeric_limits<float>::max();

void widen(float coordinate, float& least, float& greatest) {
    if (coordinate < least) {
        least = coordinate;
    }
    if (coordinate > greatest) {
        greatest = coordinate;
    }
}

} // namespace

BoundingBox::BoundingBox(const BoundingBox& other) : minCorner(other.minCorner), maxCorner(other.maxCorner) {
}

BoundingBox& BoundingBox::operator=(const BoundingBox& other) {
    if (this != &other) {
        minCorner = other.minCorner;
        maxCorner = other.maxCorner;
        dirty = true;
    }
    return *this;
}

void BoundingBox::reset() {
    minCorner = Vector(largest, largest, largest);
    maxCorner = minCorner * -1.0F;
    dirty = true;
}

void BoundingBox::addPoint(const Vector& point) {
    widen(point.x, minCorner.x, maxCorner.x);
    widen(point.y, minCorner.y, maxCorner.y);
    widen(point.z, minCorner.z, maxCorner.z);
    dirty = true;
}

void BoundingBox::addPoints(const float* xyz, std::uint32_t count) {
    for (const float* const end = xyz + std::size_t{3} * count; xyz != end; xyz += 3) {
        addPoint(Vector(xyz));
    }
}

void BoundingBox::setLxLyLz(const Vector& lengths, const Vector& center) {
    const Vector half = lengths / 2.0F;
    minCorner = center - half;
    maxCorner = half + center;
    dirty = true;
}

void BoundingBox::getCorners(std::span<Vector, 8> out) const {
    const Vector h = getLxLyLz() / 2.0F;
    const Vector c = getCenter();
    for (std::size_t i = 0; i < out.size(); ++i) {
        out[i] =
            c + Vector((i & 4U) == 0 ? h.x : -h.x, (i & 2U) == 0 ? h.y : -h.y, (i & 1U) == 0 ? h.z : -h.z);
    }
}

} // namespace Vantrel
