#pragma once

#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/math/Mat4.h"

#include <GL/glew.h>

namespace Vantrel {

/** Multiplies the modelview matrix of the fixed functions, where there are any, while it lives. */
class ScopedModelMatrix {
public:
    /** With `isScaled` normals are made one long again: a matrix that scales would scale the light too. */
    explicit ScopedModelMatrix(const Mat4& matrix, bool isScaled = false)
        : isNormalizing(isScaled && hasMatrices) {
        if (hasMatrices) {
            glMatrixMode(GL_MODELVIEW);
            glPushMatrix();
            glMultMatrixf(matrix.m.data());
        }
        if (isNormalizing) {
            glEnable(GL_NORMALIZE);
        }
    }
    ScopedModelMatrix(const ScopedModelMatrix&) = delete;
    ScopedModelMatrix& operator=(const ScopedModelMatrix&) = delete;
    ~ScopedModelMatrix() {
        if (isNormalizing) {
            glDisable(GL_NORMALIZE);
        }
        if (hasMatrices) {
            glMatrixMode(GL_MODELVIEW);
            glPopMatrix();
        }
    }

private:
    bool hasMatrices = ManagerOpenGLState::isCompatibilityProfile();
    bool isNormalizing;
};

} // namespace Vantrel
