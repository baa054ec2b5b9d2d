#include "vtl/scene/motion/VantrelMotionDataCameraParabolicMotion1PhaseChangeOrientationViaSLERP.h"

namespace Vantrel {

using OnePhase = VantrelMotionDataCameraParabolicMotion1PhaseChangeOrientationViaSLERP;

OnePhase::VantrelMotionDataCameraParabolicMotion1PhaseChangeOrientationViaSLERP(
    const VantrelQuaternion& startRotation, const VantrelQuaternion& endRotation, const Vector& place)
    : position(place), startOrientation(rotationOf(startRotation)), endOrientation(rotationOf(endRotation)) {
}

Vector OnePhase::getPosition(double /*t*/) const {
    return position;
}

void OnePhase::getOrientation(double t, Mat4& out) const {
    const auto part = static_cast<float>(passedPart(t, 0.0, 1.0));
    VantrelQuaternion::slerp(startOrientation, endOrientation, part).toMatrix(out);
}

} // namespace Vantrel
