#pragma once

#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/gl/ScopedMatrix.h"
#include "vtl/math/Mat4.h"

#include <optional>

namespace Vantrel {

/** Multiplies the modelview matrix of the fixed functions, where there are any, while it lives. */
class ScopedModelMatrix {
public:
    /** With `isScaled` normals are made one long again: a matrix that scales would scale the light too. */
    explicit ScopedModelMatrix(const Mat4& matrix, bool isScaled = false) {
        if (ManagerOpenGLState::isCompatibilityProfile()) {
            saved.emplace(GLenum{GL_MODELVIEW});
            glMultMatrixf(matrix.m.data());
            isNormalizing = isScaled;
            if (isNormalizing) {
                glEnable(GL_NORMALIZE);
            }
        }
    }
    ScopedModelMatrix(const ScopedModelMatrix&) = delete;
    ScopedModelMatrix& operator=(const ScopedModelMatrix&) = delete;
    ~ScopedModelMatrix() {
        if (isNormalizing) {
            glDisable(GL_NORMALIZE);
        }
    }

private:
    std::optional<ScopedMatrix> saved;
    bool isNormalizing = false;
};

} // namespace Vantrel
