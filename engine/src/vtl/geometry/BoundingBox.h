#pragma once

#include "vtl/math/VectorT.h"

#include <cstdint>
#include <span>

namespace Vantrel {

/** The axis-aligned box of a model or mesh in its own space. A box without points is empty. */
class BoundingBox {
public:
    /** Empty. */
    BoundingBox() { reset(); }
    /** Copies the corners alone. */
    BoundingBox(const BoundingBox& other);
    BoundingBox& operator=(const BoundingBox& other);
    virtual ~BoundingBox() = default;

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

private:
    Vector getCenter() const { return (minCorner + maxCorner) / 2.0F; }

    bool dirty = true;
    Vector minCorner;
    Vector maxCorner;
};

} // namespace Vantrel
