#pragma once

#include "vtl/scene/motion/VantrelMotionData.h"

namespace Vantrel {

/** Turns on one spot from one rotation to another, at an even rate. */
class VantrelMotionDataCameraParabolicMotion1PhaseChangeOrientationViaSLERP : public VantrelMotionData {
public:
    /** Quaternions are those of display matrices; what is no rotation counts as none. */
    VantrelMotionDataCameraParabolicMotion1PhaseChangeOrientationViaSLERP(
        const VantrelQuaternion& startRotation, const VantrelQuaternion& endRotation, const Vector& place);

    Vector getPosition(double t) const override;
    void getOrientation(double t, Mat4& out) const override;

private:
    Vector position;
    VantrelQuaternion startOrientation;
    VantrelQuaternion endOrientation;
};

} // namespace Vantrel
