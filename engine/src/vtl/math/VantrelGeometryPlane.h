#pragma once

#include "vtl/math/VectorT.h"

#include <array>

namespace Vantrel {

/** A plane: the points p for which `normal` dot p equals `d`. Nothing is normalised. */
class VantrelGeometryPlane {
public:
    /** The plane through the origin with +Z as its normal. */
    VantrelGeometryPlane() = default;
    VantrelGeometryPlane(float nx, float ny, float nz, float d_) : normal{nx, ny, nz}, d(d_) {}
    virtual ~VantrelGeometryPlane() = default;

    Vector getNormal() const { return Vector(normal.data()); }
    void setNormal(const Vector& direction) { normal = {direction.x, direction.y, direction.z}; }

    std::array<float, 3> normal{0.0F, 0.0F, 1.0F};
    float d = 0.0F;
};

} // namespace Vantrel
