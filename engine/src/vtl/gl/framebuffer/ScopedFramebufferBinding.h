#pragma once

#include "vtl/gl/framebuffer/FramebufferFunctions.h"

namespace Vantrel {

/** Binds whatever frame buffer was bound before again at its end. Needs frame buffer objects. */
class ScopedFramebufferBinding {
public:
    ScopedFramebufferBinding() { glGetIntegerv(GL_FRAMEBUFFER_BINDING, &previous); }
    ScopedFramebufferBinding(const ScopedFramebufferBinding&) = delete;
    ScopedFramebufferBinding& operator=(const ScopedFramebufferBinding&) = delete;
    ~ScopedFramebufferBinding() {
        FramebufferFunctions::ofContext().bindFramebuffer(GL_FRAMEBUFFER, static_cast<GLuint>(previous));
    }

private:
    GLint previous = 0;
};

} // namespace Vantrel
