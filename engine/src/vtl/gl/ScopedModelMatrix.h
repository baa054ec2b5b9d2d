#pragma once

#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/gl/ScopedMatrix.h"
#include "vtl/math/Mat4.h"

#include <optional>

namespace Vantrel {

/** Multiplies the modelview matrix of the fixed functions, where there are any, while it lives. */
class ScopedModelMatrix {
public:
    explicit ScopedModelMatrix(const Mat4& matrix) {
        if (ManagerOpenGLState::isCompatibilityProfile()) {
            saved.emplace(GLenum{GL_MODELVIEW});
            glMultMatrixf(matrix.m.data());
        }
    }

private:
    std::optional<ScopedMatrix> saved;
};

} // namespace Vantrel
