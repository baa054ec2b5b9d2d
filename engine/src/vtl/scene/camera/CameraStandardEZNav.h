#pragma once

#include "vtl/scene/camera/CameraStandard.h"

#include <cstdint>

namespace Vantrel {

/**
 * The camera that a person flies: dragging turns it, a held right button flies it ahead, with Left Shift
 * back, and the wheel sets how fast.
 */
class CameraStandardEZNav : public CameraStandard {
public:
    using CameraStandard::CameraStandard;

    /** The middle button takes the speed back to where it started. */
    void onMouseDown(const SDL_MouseButtonEvent& event) override;
    /** One count for each notch, ten with Left Ctrl, a hundred with Left Alt as well. */
    void onMouseWheelScroll(const SDL_MouseWheelEvent& event) override;
    void onMouseMove(const SDL_MouseMotionEvent& event) override;
    void update() override;
    /** How many times the camera's velocity it moves, whatever the sign. The wheel counts on from there. */
    virtual void setCamVelocityMultiplier(float multiplier);

protected:
    float stepLength() const override { return getCameraVelocity() * velocityMultiplier; }

private:
    float velocityMultiplier = 1.0F;
    /** The multiplier; below zero it divides. */
    std::int32_t wheelScrollCount = 1;
};

} // namespace Vantrel
