#pragma once

#include <GL/glew.h>

namespace Vantrel {

/**
 * Lets the fixed-function path draw colours as they are given, without fog, light and the two-dimensional
 * texture of the selected unit, while it
 * lives; the current colour is restored with them. Needs a compatibility context.
 */
class ScopedPlainColors {
public:
    ScopedPlainColors() {
        glPushAttrib(GL_ENABLE_BIT | GL_CURRENT_BIT);
        glDisable(GL_TEXTURE_2D);
        glDisable(GL_FOG);
        glDisable(GL_LIGHTING);
    }
    ScopedPlainColors(const ScopedPlainColors&) = delete;
    ScopedPlainColors& operator=(const ScopedPlainColors&) = delete;
    ~ScopedPlainColors() { glPopAttrib(); }
};

} // namespace Vantrel
