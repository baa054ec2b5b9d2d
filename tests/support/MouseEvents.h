#pragma once

#include <SDL.h>

namespace Vantrel::Tests {

inline SDL_MouseButtonEvent buttonEvent(int button, int x = 0, int y = 0) {
    SDL_MouseButtonEvent event{};
    event.button = static_cast<Uint8>(button);
    event.x = x;
    event.y = y;
    return event;
}

inline SDL_MouseMotionEvent motionEvent(int dx, int dy) {
    SDL_MouseMotionEvent event{};
    event.xrel = dx;
    event.yrel = dy;
    return event;
}

inline SDL_MouseWheelEvent wheelEvent(int y) {
    SDL_MouseWheelEvent event{};
    event.y = y;
    return event;
}

} // namespace Vantrel::Tests
