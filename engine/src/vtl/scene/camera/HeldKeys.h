#pragma once

#include <SDL.h>

namespace Vantrel {

/** Whether a key of the keyboard is held down now. Main thread. */
inline bool isKeyHeld(SDL_Scancode key) {
    int count = 0;
    const Uint8* const keys = SDL_GetKeyboardState(&count);
    return keys != nullptr && key < count && keys[key] != 0;
}

} // namespace Vantrel
