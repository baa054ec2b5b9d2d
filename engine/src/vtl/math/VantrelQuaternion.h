#pragma once

#include "vtl/math/Mat4.h"

namespace Vantrel {

/**
 * A rotation as a unit quaternion, used to turn smoothly from one display matrix to another. The way from a
 * matrix and the way back are each other's inverse and serve only as a pair: x, y and z have the opposite
 * sign of what is usual for the same matrix.
 */
class VantrelQuaternion {
public:
    /** The identity. */
    VantrelQuaternion() = default;
    VantrelQuaternion(float w_, float x_, float y_, float z_) : w(w_), x(x_), y(y_), z(z_) {}
    VantrelQuaternion(const VantrelQuaternion&) = default;
    /**
     * From the rotation in the upper left 3 by 3, by the largest of the trace and the diagonal elements (K.
     * Shoemake, Animating Rotation with Quaternion Curves, 1985).
     */
    explicit VantrelQuaternion(const Mat4& rotation);
    VantrelQuaternion& operator=(const VantrelQuaternion&) = default;
    virtual ~VantrelQuaternion() = default;

    float dot(const VantrelQuaternion& q) const { return w * q.w + x * q.x + y * q.y + z * q.z; }
    float magnitude() const;
    /** The same rotation from the other half of the sphere. */
    VantrelQuaternion negated() const { return {-w, -x, -y, -z}; }
    /** Makes the magnitude 1; the zero quaternion becomes NaN. */
    void normalize();
    VantrelQuaternion normalized() const;
    /** Writes the rotation to all 16 elements of `out`. */
    void toMatrix(Mat4& out) const;

    /**
     * The rotation at `t`, from 0 (`a`) to 1 (`b`, possibly negated), on the shorter arc and at an even rate;
     * of unit magnitude whatever the magnitudes of `a` and `b`. Nearly equal rotations are mixed in
     * proportion (K. Shoemake, Animating Rotation with Quaternion Curves, 1985).
     */
    static VantrelQuaternion slerp(const VantrelQuaternion& a, const VantrelQuaternion& b, float t);

    float w = 1.0F;
    float x = 0.0F;
    float y = 0.0F;
    float z = 0.0F;
};

} // namespace Vantrel
