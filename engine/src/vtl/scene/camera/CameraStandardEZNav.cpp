#include "vtl/scene/camera/CameraStandardEZNav.h"

#include "vtl/base/Report.h"
#include "vtl/scene/camera/HandlerMouseState.h"
#include "vtl/scene/camera/HeldKeys.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Vantrel {
namespace {

/** A multiplier this small counts as none. */
constexpr float smallest = std::numeric_limits<float>::min();
/** A multiplier can be cut to it, and it can be counted on from, without an overflow. */
constexpr std::int32_t largestCount = 1'000'000'000;

/** Counts of one notch of the wheel. */
std::int32_t wheelStep() {
    if (!isKeyHeld(SDL_SCANCODE_LCTRL)) {
        return 1;
    }
    return isKeyHeld(SDL_SCANCODE_LALT) ? 100 : 10;
}

/** The same as the sign of what the wheel turned. */
std::int32_t signOf(std::int32_t turned) {
    return turned == 0 ? 0 : turned > 0 ? 1 : -1;
}

float multiplierOf(std::int32_t count) {
    const auto value = static_cast<float>(count);
    const float multiplier = count < 0 ? -1.0F / value : value;
    return std::abs(multiplier) <= smallest ? 1.0F : multiplier;
}

std::int32_t countOf(float multiplier) {
    if (multiplier <= smallest) {
        return 0;
    }
    const float count = multiplier >= 1.0F ? multiplier : 1.0F / multiplier;
    return static_cast<std::int32_t>(std::min(count, static_cast<float>(largestCount)));
}

} // namespace

void CameraStandardEZNav::onMouseDown(const SDL_MouseButtonEvent& event) {
    CameraStandard::onMouseDown(event);
    if (mouseHandler != nullptr && mouseHandler->isMiddleDown()) {
        wheelScrollCount = 1;
        velocityMultiplier = 1.0F;
        Report() << "Reset Cam velocity multiplier due to middle button click...\n";
    }
}

void CameraStandardEZNav::onMouseWheelScroll(const SDL_MouseWheelEvent& event) {
    wheelScrollCount =
        std::clamp(wheelScrollCount + signOf(event.y) * wheelStep(), -largestCount, largestCount);
    velocityMultiplier = multiplierOf(wheelScrollCount);
    Report() << "Cam velocity multiplier " << velocityMultiplier << ", wheelScroll count " << wheelScrollCount
             << ", velocity (m/frame) " << stepLength() << "\n";
}

void CameraStandardEZNav::onMouseMove(const SDL_MouseMotionEvent& /*event*/) {
    if (!hasMouse("onMouseMove")) {
        return;
    }
    const bool isLeftDown = mouseHandler->isLeftDown();
    if (!getIsLockedWRTparent() && (isLeftDown || mouseHandler->isRightDown())) {
        changeLookDirection(mouseHandler->getDx(), mouseHandler->getDy());
    } else if (isLeftDown && isAttachedToJoint()) {
        dragOrbit();
    }
}

void CameraStandardEZNav::setCamVelocityMultiplier(float multiplier) {
    if (!std::isfinite(multiplier)) {
        return;
    }
    velocityMultiplier = std::abs(multiplier);
    wheelScrollCount = countOf(velocityMultiplier);
    Report() << "Cam velocity multiplier " << velocityMultiplier << ", wheelScroll count " << wheelScrollCount
             << "\n";
}

void CameraStandardEZNav::update() {
    CameraStandard::update();
    if (mouseHandler == nullptr || !mouseHandler->isRightDown()) {
        return;
    }
    if (isKeyHeld(SDL_SCANCODE_LSHIFT)) {
        moveOppositeLookDirection(stepLength());
    } else {
        moveInLookDirection(stepLength());
    }
}

} // namespace Vantrel
