#pragma once

#include <GL/glew.h>

namespace Vantrel {

/** Switches a capability of GL on or off. */
inline void setEnabled(GLenum capability, bool enabled) {
    if (enabled) {
        glEnable(capability);
    } else {
        glDisable(capability);
    }
}

} // namespace Vantrel
