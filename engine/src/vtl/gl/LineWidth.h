#pragma once

#include "vtl/gl/ManagerOpenGLState.h"

#include <GL/glew.h>
#include <algorithm>

namespace Vantrel {

/**
 * Sets how many pixels wide lines are from now on, as near to `width` as the context comes without an error;
 * what is no width is 1.
 */
inline void setLineWidth(float width) {
    const float widest = ManagerOpenGLState::getCapabilities().maxLineWidth;
    glLineWidth(width > 0.0F ? std::min(width, widest) : 1.0F);
}

} // namespace Vantrel
