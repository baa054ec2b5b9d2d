#pragma once

#include "vtl/scene/motion/WOOperatorMotionSpecifier.h"

#include <cstdint>
#include <memory>
#include <string>

namespace Vantrel {

/**
 * Moves its target within a given time of simulation, and stops at either end of it. The pose of an end is
 * only written when an update comes exactly there.
 */
class WOOperatorMotionSpecifierTimeConstrained : public WOOperatorMotionSpecifier {
public:
    static std::string getClassName() { return "WOOperatorMotionSpecifierTimeConstrained"; }
    /** Target and path may be null until the motion starts. A motion of no duration ends with its start. */
    static std::unique_ptr<WOOperatorMotionSpecifierTimeConstrained>
    New(WO* target, std::unique_ptr<VantrelMotionData> data, std::uint32_t durationMs);

    WOOperatorMotionSpecifierTimeConstrained(WO* target, std::unique_ptr<VantrelMotionData> data,
                                             std::uint32_t duration);

    /** Advances the clock and writes the pose; the operator's own children stay as they are. */
    void onUpdate() override;
    void setNormalizedTime(double t) override;
    double getNormalizedTime() const override { return normalizedTime; }

    virtual void setDurationMs(std::uint32_t duration) { durationMs = duration; }
    virtual std::uint32_t getDurationMs() const { return durationMs; }

private:
    void advanceClock();
    void stopAt(double end);

    double normalizedTime = 0.0;
    double elapsedMs = 0.0;
    std::uint32_t durationMs;
};

} // namespace Vantrel
