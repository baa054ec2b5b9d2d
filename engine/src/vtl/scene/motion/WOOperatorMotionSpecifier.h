#pragma once

#include "vtl/scene/motion/VantrelMotionData.h"
#include "vtl/scene/object/WO.h"
#include "vtl/scene/object/WORef.h"

#include <memory>
#include <string>

namespace Vantrel {

/**
 * Moves another object along a path while it stands in the world itself, drawing nothing. What its time is
 * made of is its subclass's. Starts stopped, and stops by itself without a path or with its target dead.
 */
class WOOperatorMotionSpecifier : public WO {
public:
    static std::string getClassName() { return "WOOperatorMotionSpecifier"; }

    /** Both may be null until the motion starts. */
    WOOperatorMotionSpecifier(WO* target, std::unique_ptr<VantrelMotionData> data);

    /** From 0 to 1; writes no pose. What isn't finite changes nothing. */
    virtual void setNormalizedTime(double t) = 0;
    virtual double getNormalizedTime() const = 0;
    virtual void startMotion() { isRunning = true; }
    /** The target stays where it is. */
    virtual void stopMotion() { isRunning = false; }
    /** Both return whether the motion runs now. */
    virtual bool toggleMotion() { return isRunning = !isRunning; }
    virtual bool setMotionRunning(bool running) { return isRunning = running; }
    virtual bool isMotionRunning() const { return isRunning; }
    /**
     * Negative goes backwards. Nearer to zero than 0.00001, or no number, changes nothing and warns; infinity
     * changes nothing.
     */
    virtual void setMotionPlaybackSpeed(double multiplier);
    virtual double getMotionPlaybackSpeed() const { return timeMultiplier; }
    virtual void reverseMotionPlayback() { timeMultiplier *= -1.0; }
    /** The path so far dies. */
    virtual void setMotionData(std::unique_ptr<VantrelMotionData> data);
    virtual void setTargetWO(WO* target) { targetWO = target; }
    /** Null when it has died. */
    virtual WO* getTargetWO() const { return targetWO.get(); }

protected:
    bool hasTargetAndData() const { return targetWO && motionData != nullptr; }
    /** Puts the target where the path is at `t`; a pose that isn't finite isn't written. */
    void writePose(double t);

    WORef<WO> targetWO;
    std::unique_ptr<VantrelMotionData> motionData;
    double timeMultiplier = 1.0;
    bool isRunning = false;
};

} // namespace Vantrel
