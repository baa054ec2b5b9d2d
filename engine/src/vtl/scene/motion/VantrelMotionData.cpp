#include "vtl/scene/motion/VantrelMotionData.h"

#include "vtl/math/ScalarComparison.h"

#include <algorithm>

namespace Vantrel {

void VantrelMotionData::getPositionAndOrientation(double t, Vector& position, Mat4& orientation) const {
    position = getPosition(t);
    getOrientation(t, orientation);
}

double VantrelMotionData::passedPart(double t, double from, double to) {
    if (!(to > from)) {
        return 1.0;
    }
    return t > from ? std::min((t - from) / (to - from), 1.0) : 0.0; // 0 for no number, too
}

VantrelQuaternion VantrelMotionData::rotationOf(const VantrelQuaternion& q) {
    const VantrelQuaternion unit = q.normalized();
    return isNearlyEqual(unit.magnitude(), 1.0F, 0.01F) ? unit : VantrelQuaternion();
}

} // namespace Vantrel
