#pragma once

#include "vtl/math/Mat4.h"
#include "vtl/math/VantrelQuaternion.h"
#include "vtl/math/VectorT.h"

namespace Vantrel {

/**
 * The path of a scripted move: where an object is and how it is turned at a time `t` from 0 to 1. It keeps no
 * clock. Main thread.
 */
class VantrelMotionData {
public:
    VantrelMotionData() = default;
    VantrelMotionData(const VantrelMotionData&) = delete;
    VantrelMotionData& operator=(const VantrelMotionData&) = delete;
    virtual ~VantrelMotionData() = default;

    /** Metres, in the world's axes. */
    virtual Vector getPosition(double t) const = 0;
    /** Writes a display matrix: a rotation with the look, the left and the up direction as its columns. */
    virtual void getOrientation(double t, Mat4& out) const = 0;
    virtual void getPositionAndOrientation(double t, Vector& position, Mat4& orientation) const;

protected:
    /** How much of the time between the two moments has passed at `t`, from 0 to 1; all, if there is none. */
    static double passedPart(double t, double from, double to);
    /** `q`, or the identity where `q` is no rotation. */
    static VantrelQuaternion rotationOf(const VantrelQuaternion& q);
};

} // namespace Vantrel
