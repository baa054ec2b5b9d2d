#pragma once

#include <GL/glew.h>

namespace Vantrel {

/** Lets the fixed-function path draw without light while it lives. Needs a compatibility context. */
class ScopedUnlit {
public:
    ScopedUnlit() {
        glPushAttrib(GL_ENABLE_BIT);
        glDisable(GL_LIGHTING);
    }
    ScopedUnlit(const ScopedUnlit&) = delete;
    ScopedUnlit& operator=(const ScopedUnlit&) = delete;
    ~ScopedUnlit() { glPopAttrib(); }
};

} // namespace Vantrel
