#include "vtl/scene/camera/HandlerMouseState.h"

#include "vtl/base/Report.h"
#include "vtl/gl/ManagerWindowing.h"

namespace Vantrel {

bool* HandlerMouseState::Buttons::find(std::uint8_t sdlButton) {
    switch (sdlButton) {
    case SDL_BUTTON_LEFT:
        return &left;
    case SDL_BUTTON_RIGHT:
        return &right;
    case SDL_BUTTON_MIDDLE:
        return &middle;
    default:
        return nullptr;
    }
}

void HandlerMouseState::onMouseDown(const SDL_MouseButtonEvent& event) {
    if (!down.any()) {
        x = event.x;
        y = event.y;
        dx = 0;
        dy = 0;
        dragging = false;
    }
    pressed = {};
    if (bool* const isPressed = pressed.find(event.button)) {
        *isPressed = true;
        *down.find(event.button) = true;
    } else {
        Report() << "Unknown SDL Mouse Button" << static_cast<int>(event.button) << " pressed\n";
    }
    relativeModeArmed = true;
}

void HandlerMouseState::onMouseUp(const SDL_MouseButtonEvent& event) {
    released = {};
    if (bool* const isReleased = released.find(event.button)) {
        *isReleased = true;
        *down.find(event.button) = false;
    } else {
        Report() << "Unknown SDL Mouse Button" << static_cast<int>(event.button) << " released\n";
    }
    if (down.any()) {
        return;
    }
    dx = 0;
    dy = 0;
    dragging = false;
    if (useRelativeMouseMode && relativeModeArmed) {
        SDL_SetRelativeMouseMode(SDL_FALSE);
        relativeModeArmed = false;
    }
}

void HandlerMouseState::onMouseWheelScroll(const SDL_MouseWheelEvent& event) {
    Report() << "SDL_MouseWheelEvent delta (x,y) is (" << event.x << ", " << event.y << " ).\n";
}

void HandlerMouseState::onMouseMove(const SDL_MouseMotionEvent& event) {
    if (!down.any()) {
        return;
    }
    dx = event.xrel;
    dy = event.yrel;
    if (!dragging) {
        dragging = true;
        if (useRelativeMouseMode) {
            SDL_SetRelativeMouseMode(SDL_TRUE);
        }
    }
}

void HandlerMouseState::reset() {
    x = ManagerWindowing::getWindowWidth() / 2;
    y = ManagerWindowing::getWindowHeight() / 2;
    down = {};
    pressed = {};
    released = {};
    dx = 0;
    dy = 0;
    dragging = false;
    relativeModeArmed = false;
    if (ManagerWindowing::isWindowExisting()) {
        SDL_SetRelativeMouseMode(SDL_FALSE);
    }
}

void HandlerMouseState::getMouseDownPosition(int& pressX, int& pressY) const {
    pressX = x;
    pressY = y;
}

} // namespace Vantrel
