#pragma once

#include "vtl/scene/motion/VantrelMotionData.h"

namespace Vantrel {

/**
 * Turns towards a target on the spot, flies to a destination on a half circle, and from there goes round the
 * target once, always looking at it from the flight on. The half circle rises towards `up`; where that points
 * along the travel there is none, and the flight is straight.
 */
class VantrelMotionDataCameraParabolicMotion3PhaseSLERPnCIRCLE : public VantrelMotionData {
public:
    /**
     * Points are in the world, in metres. `startRotation` is that of a display matrix; what is no rotation
     * counts as none, and an `upVector` without a direction as +Z.
     */
    VantrelMotionDataCameraParabolicMotion3PhaseSLERPnCIRCLE(const Vector& start,
                                                             const VantrelQuaternion& startRotation,
                                                             const Vector& upVector, const Vector& target,
                                                             const Vector& destination);

    Vector getPosition(double t) const override;
    void getOrientation(double t, Mat4& out) const override;

    /** Until then the object turns; what isn't finite changes nothing. */
    virtual void setPhaseOneEnd(float t);
    /** Until then it flies. */
    virtual void setPhaseTwoEnd(float t);

private:
    /** What the object sees by where its view of the target has no direction, or none across `up`. */
    struct Bearing {
        Vector look;
        Vector left;
    };

    void chooseBearings();
    bool hasArc() const;
    Vector flownPosition(double part) const;
    /** From the target to where the object is on its round. */
    Vector offsetOnRound(double t) const;
    Mat4 orientationAlong(const Vector& look, const Bearing& spare) const;

    Vector startPosition;
    Vector destinationPosition;
    Vector midpoint;
    /** From the midpoint to the start. */
    Vector startOffset;
    Vector up;
    /** Zero when start and destination are one. */
    Vector travelDirection;
    /** Of the half circle; zero where there is none. */
    Vector circleAxis;
    double phaseOneEnd = 0.2;
    double phaseTwoEnd = 0.6;
    VantrelQuaternion startOrientation;
    VantrelQuaternion targetOrientation;
    Vector circleStart;
    Vector targetPosition;
    /** The one is the limit as the flight begins, the other as it ends. */
    Bearing bearingAtStart;
    Bearing bearingAtDestination;
};

} // namespace Vantrel
