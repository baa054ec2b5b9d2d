#pragma once

#include <GL/glew.h>

namespace Vantrel {

/** Sets how many pixels wide points are while it lives, and then restores it. */
class ScopedPointSize {
public:
    explicit ScopedPointSize(float pixels) {
        glGetFloatv(GL_POINT_SIZE, &before);
        glPointSize(pixels);
    }
    ScopedPointSize(const ScopedPointSize&) = delete;
    ScopedPointSize& operator=(const ScopedPointSize&) = delete;
    ~ScopedPointSize() { glPointSize(before); }

private:
    float before = 1.0F;
};

} // namespace Vantrel
