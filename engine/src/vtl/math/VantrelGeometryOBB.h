#pragma once

#include "vtl/math/VectorT.h"

#include <array>

namespace Vantrel {

/** An oriented box. */
class VantrelGeometryOBB {
public:
    /** `lengths` are the full lengths of the sides along the three axes, which are one long. */
    VantrelGeometryOBB(const Vector& center_, const Vector& lengths, const Vector& xAxis, const Vector& yAxis,
                       const Vector& zAxis)
        : center(center_), halfExtents(lengths / 2.0F), axes{xAxis, yAxis, zAxis} {}
    virtual ~VantrelGeometryOBB() = default;

    Vector center;
    Vector halfExtents;
    std::array<Vector, 3> axes;
};

} // namespace Vantrel
