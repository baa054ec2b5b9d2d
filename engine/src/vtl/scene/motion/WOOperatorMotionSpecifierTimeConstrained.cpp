#include "vtl/scene/motion/WOOperatorMotionSpecifierTimeConstrained.h"

#include "vtl/base/ManagerSDLTime.h"

#include <cmath>
#include <limits>
#include <utility>

namespace Vantrel {

std::unique_ptr<WOOperatorMotionSpecifierTimeConstrained>
WOOperatorMotionSpecifierTimeConstrained::New(WO* target, std::unique_ptr<VantrelMotionData> data,
                                              std::uint32_t durationMs) {
    auto made =
        std::make_unique<WOOperatorMotionSpecifierTimeConstrained>(target, std::move(data), durationMs);
    made->onCreate();
    return made;
}

WOOperatorMotionSpecifierTimeConstrained::WOOperatorMotionSpecifierTimeConstrained(
    WO* target, std::unique_ptr<VantrelMotionData> data, std::uint32_t duration)
    : WOOperatorMotionSpecifier(target, std::move(data)), durationMs(duration) {
}

void WOOperatorMotionSpecifierTimeConstrained::onUpdate() {
    if (!isRunning) {
        return;
    }
    if (!hasTargetAndData()) {
        stopMotion();
        return;
    }
    advanceClock();
    if (isRunning) {
        writePose(normalizedTime);
    }
}

void WOOperatorMotionSpecifierTimeConstrained::advanceClock() {
    elapsedMs += timeMultiplier * ManagerSDLTime::getSimDeltaMs();
    constexpr double beyond = std::numeric_limits<double>::infinity();
    const double t = durationMs != 0 ? elapsedMs / durationMs : timeMultiplier * beyond;
    if (t < 0.0) {
        stopAt(0.0);
    } else if (!(t <= 1.0)) { // nor is what speeds without measure add up to
        stopAt(1.0);
    } else {
        normalizedTime = t;
    }
}

void WOOperatorMotionSpecifierTimeConstrained::stopAt(double end) {
    normalizedTime = end;
    stopMotion();
}

void WOOperatorMotionSpecifierTimeConstrained::setNormalizedTime(double t) {
    if (std::isfinite(t)) {
        normalizedTime = t;
        elapsedMs = durationMs * t;
    }
}

} // namespace Vantrel
