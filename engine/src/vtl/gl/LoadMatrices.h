#pragma once

#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/math/Mat4.h"

#include <GL/glew.h>

namespace Vantrel {

/** Gives the fixed functions, where there are any, their two matrices; GL_MODELVIEW is the selected one after
 * it. */
inline void loadMatrices(const Mat4& projection, const Mat4& view) {
    if (!ManagerOpenGLState::isCompatibilityProfile()) {
        return;
    }
    glMatrixMode(GL_PROJECTION);
    glLoadMatrixf(projection.m.data());
    glMatrixMode(GL_MODELVIEW);
    glLoadMatrixf(view.m.data());
}

} // namespace Vantrel
