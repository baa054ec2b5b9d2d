#pragma once

#include <SDL.h>

namespace Vantrel::Tests {

/** A key that is held down while this lives. */
class HeldKey {
public:
    explicit HeldKey(SDL_Scancode code, bool isHeld = true)
        : state(const_cast<Uint8*>(SDL_GetKeyboardState(nullptr)) + code) {
        *state = isHeld ? 1 : 0;
    }
    HeldKey(const HeldKey&) = delete;
    HeldKey& operator=(const HeldKey&) = delete;
    ~HeldKey() { *state = 0; }

private:
    Uint8* state;
};

} // namespace Vantrel::Tests
