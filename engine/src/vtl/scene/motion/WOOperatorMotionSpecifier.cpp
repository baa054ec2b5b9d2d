#include "vtl/scene/motion/WOOperatorMotionSpecifier.h"

#include "vtl/base/Report.h"
#include "vtl/math/VectorChecks.h"
#include "vtl/scene/model/Model.h"

#include <cmath>
#include <utility>

namespace Vantrel {

WOOperatorMotionSpecifier::WOOperatorMotionSpecifier(WO* target, std::unique_ptr<VantrelMotionData> data)
    : targetWO(target), motionData(std::move(data)) {
}

void WOOperatorMotionSpecifier::setMotionPlaybackSpeed(double multiplier) {
    constexpr double slowest = 0.00001;
    if (!(std::abs(multiplier) >= slowest)) {
        Report() << "WARNING: void Vantrel::WOOperatorMotionSpecifier::setMotionPlaybackSpeed( double "
                    "timeMultiplier )\n"
                 << "   user tried to set timeMultiplier to " << multiplier
                 << " which is too close to zero. The\n"
                 << "   timeMultiplier MUST be non-zero. Use WOOperatorMotionSpecifier::stopMotion or "
                    "toggleMotion "
                    "to\n"
                 << "   pause the animation. Now returning from setter WITHOUT modifying any state.\n\n";
    } else if (std::isfinite(multiplier)) {
        timeMultiplier = multiplier;
    }
}

void WOOperatorMotionSpecifier::setMotionData(std::unique_ptr<VantrelMotionData> data) {
    motionData = std::move(data);
}

void WOOperatorMotionSpecifier::writePose(double t) {
    Mat4 orientation;
    Vector position;
    motionData->getPositionAndOrientation(t, position, orientation);
    if (!isFinite(position) || !isFinite(orientation)) {
        return;
    }
    targetWO->setPosition(position);
    if (Model* const pose = targetWO->getModel()) {
        pose->setDisplayMatrix(orientation);
    }
}

} // namespace Vantrel
