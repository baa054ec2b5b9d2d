#include "vtl/gl/ProjectionMatrix.h"

#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/gl/ManagerWindowing.h"
#include "vtl/math/MatrixBuilders.h"

#include <GL/glew.h>

namespace Vantrel {

void loadPerspective(float fovYDegrees, float aspect, float nearPlane, float farPlane) {
    if (!ManagerWindowing::hasContext() || ManagerOpenGLState::isVersion32OrGreater()) {
        return;
    }
    Mat4 projection;
    buildPerspective(fovYDegrees, aspect, nearPlane, farPlane, projection);
    glLoadMatrixf(projection.m.data());
}

void loadOrthographic2D(float left, float right, float bottom, float top) {
    if (ManagerWindowing::hasContext() && ManagerOpenGLState::isCompatibilityProfile()) {
        glOrtho(left, right, bottom, top, -1.0, 1.0);
    }
}

} // namespace Vantrel
