#pragma once

#include <GL/glew.h>

namespace Vantrel {

/**
 * Selects a fixed-function matrix (GL_MODELVIEW, GL_PROJECTION, GL_TEXTURE) and restores its value at the
 * end, when GL_MODELVIEW is selected again, as it is wherever the engine draws. Needs a compatibility
 * context.
 */
class ScopedMatrix {
public:
    explicit ScopedMatrix(GLenum matrixMode) : mode(matrixMode) {
        glMatrixMode(mode);
        glPushMatrix();
    }
    ScopedMatrix(const ScopedMatrix&) = delete;
    ScopedMatrix& operator=(const ScopedMatrix&) = delete;
    ~ScopedMatrix() {
        glMatrixMode(mode);
        glPopMatrix();
        glMatrixMode(GL_MODELVIEW);
    }

private:
    GLenum mode;
};

} // namespace Vantrel
