#pragma once

#include "vtl/base/Pause.h"

namespace Vantrel::Tests {

/** Answers every pause at once while it lives, and counts them. */
class KeyPresses {
public:
    KeyPresses() {
        pressed = 0;
        Pause::setKeySource([] { ++pressed; });
    }
    KeyPresses(const KeyPresses&) = delete;
    KeyPresses& operator=(const KeyPresses&) = delete;
    ~KeyPresses() { Pause::setKeySource(nullptr); }

    static int count() { return pressed; }

private:
    inline static int pressed = 0;
};

} // namespace Vantrel::Tests
