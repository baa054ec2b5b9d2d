#include "vtl/scene/motion/VantrelMotionDataCameraParabolicMotion3PhaseSLERPnCIRCLE.h"

#include "vtl/math/MatrixBuilders.h"
#include "vtl/math/VectorChecks.h"

#include <cmath>

namespace Vantrel {

using ThreePhase = VantrelMotionDataCameraParabolicMotion3PhaseSLERPnCIRCLE;

namespace {

/** `v` turned about a unit axis through the origin. */
Vector turned(const Vector& v, const Vector& axis, float radians) {
    Mat4 rotation;
    rotateAboutAxis(axis, radians, rotation);
    return rotation * v;
}

/** About `up`, made exactly perpendicular to `travel`, so that half a turn ends at the destination. */
Vector arcAxis(const Vector& up, const Vector& travel) {
    const Vector axis = acrossOr(Vector(), up, travel);
    return travel.crossProduct(axis).normalizeMe().crossProduct(travel);
}

} // namespace

ThreePhase::VantrelMotionDataCameraParabolicMotion3PhaseSLERPnCIRCLE(const Vector& start,
                                                                     const VantrelQuaternion& startRotation,
                                                                     const Vector& upVector,
                                                                     const Vector& target,
                                                                     const Vector& destination)
    : startPosition(start)
    , destinationPosition(destination)
    , midpoint((start + destination) / 2.0F)
    , startOffset(start - midpoint)
    , up(directionOr(unitZ, upVector))
    , travelDirection(directionOr(Vector(), destination - start))
    , circleAxis(arcAxis(up, travelDirection))
    , startOrientation(rotationOf(startRotation))
    , circleStart(destination)
    , targetPosition(target) {
    chooseBearings();
    targetOrientation = VantrelQuaternion(orientationAlong(target - start, bearingAtStart));
}

void ThreePhase::chooseBearings() {
    if (!hasArc()) {
        const Vector left = acrossOr(unitY, up, unitX);
        bearingAtStart = {directionOr(up * -1.0F, travelDirection * -1.0F), left};
        bearingAtDestination = {directionOr(up * -1.0F, travelDirection), left};
        return;
    }
    // An object that leaves a target leaves it against its motion; one that leaves the line through the
    // target along `up` sees it ahead if the arc first swings backwards, and behind otherwise.
    const Vector down = circleAxis.crossProduct(travelDirection);
    const float climb = up.dotProduct(travelDirection);
    const bool swingsBackFirst = climb > 0.0F && !isNearZero(climb);
    const bool swingsOverLast = climb < 0.0F && !isNearZero(climb);
    bearingAtStart = {down, circleAxis * (swingsBackFirst ? 1.0F : -1.0F)};
    bearingAtDestination = {down, circleAxis * (swingsOverLast ? -1.0F : 1.0F)};
}

bool ThreePhase::hasArc() const {
    return isDirection(circleAxis);
}

Vector ThreePhase::getPosition(double t) const {
    if (t < phaseOneEnd) {
        return startPosition;
    }
    if (t <= phaseTwoEnd) {
        return flownPosition(passedPart(t, phaseOneEnd, phaseTwoEnd));
    }
    return targetPosition + offsetOnRound(t);
}

Vector ThreePhase::flownPosition(double part) const {
    if (!hasArc()) {
        return startPosition + (destinationPosition - startPosition) * static_cast<float>(part);
    }
    // The ends themselves, which rounding would miss: beside a target in line with `up` that turns the view.
    if (part <= 0.0 || part >= 1.0) {
        return part <= 0.0 ? startPosition : destinationPosition;
    }
    constexpr double radiansPerDegree = 0.017453292519943295;
    return midpoint + turned(startOffset, circleAxis, static_cast<float>(part * 180.0 * radiansPerDegree));
}

Vector ThreePhase::offsetOnRound(double t) const {
    constexpr float radiansPerDegree = 0.017453292F;
    const auto part = static_cast<float>(passedPart(t, phaseTwoEnd, 1.0));
    return turned(circleStart - targetPosition, up, part * 360.0F * radiansPerDegree);
}

void ThreePhase::getOrientation(double t, Mat4& out) const {
    if (t < phaseOneEnd) {
        const auto part = static_cast<float>(passedPart(t, 0.0, phaseOneEnd));
        VantrelQuaternion::slerp(startOrientation, targetOrientation, part).toMatrix(out);
    } else if (t <= phaseTwoEnd) {
        const double part = passedPart(t, phaseOneEnd, phaseTwoEnd);
        const Bearing& nearer = part < 0.5 ? bearingAtStart : bearingAtDestination;
        out = orientationAlong(targetPosition - flownPosition(part), nearer);
    } else {
        out = orientationAlong(offsetOnRound(t) * -1.0F, bearingAtDestination);
    }
}

Mat4 ThreePhase::orientationAlong(const Vector& look, const Bearing& spare) const {
    const Vector ahead = directionOr(spare.look, look);
    const Vector upward = ahead.crossProduct(acrossOr(spare.left, up, ahead)).normalizeMe();
    return Mat4::fromAxes(ahead, upward.crossProduct(ahead), upward);
}

void ThreePhase::setPhaseOneEnd(float t) {
    if (std::isfinite(t)) {
        phaseOneEnd = t;
    }
}

void ThreePhase::setPhaseTwoEnd(float t) {
    if (std::isfinite(t)) {
        phaseTwoEnd = t;
    }
}

} // namespace Vantrel
