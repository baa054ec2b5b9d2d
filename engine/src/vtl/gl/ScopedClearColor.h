#pragma once

#include "vtl/math/vtlColor4f.h"

#include <GL/glew.h>
#include <array>

namespace Vantrel {

/** Sets what GL clears to while it lives. */
class ScopedClearColor {
public:
    explicit ScopedClearColor(const vtlColor4f& color) {
        glGetFloatv(GL_COLOR_CLEAR_VALUE, previous.data());
        glClearColor(color.r, color.g, color.b, color.a);
    }
    ScopedClearColor(const ScopedClearColor&) = delete;
    ScopedClearColor& operator=(const ScopedClearColor&) = delete;
    ~ScopedClearColor() { glClearColor(previous[0], previous[1], previous[2], previous[3]); }

private:
    std::array<GLfloat, 4> previous{};
};

} // namespace Vantrel
