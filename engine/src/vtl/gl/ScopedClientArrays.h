#pragma once

#include <GL/glew.h>

namespace Vantrel {

/**
 * Puts the client arrays back at the end: which are enabled, where they point, and the buffers that are
 * bound. Pointers given meanwhile are addresses, not places in a buffer. Needs a compatibility context.
 */
class ScopedClientArrays {
public:
    ScopedClientArrays() {
        glPushClientAttrib(GL_CLIENT_VERTEX_ARRAY_BIT);
        if (glBindBuffer != nullptr) { // from 1.5 on
            glBindBuffer(GL_ARRAY_BUFFER, 0);
            glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, 0);
        }
    }
    ScopedClientArrays(const ScopedClientArrays&) = delete;
    ScopedClientArrays& operator=(const ScopedClientArrays&) = delete;
    ~ScopedClientArrays() { glPopClientAttrib(); }
};

} // namespace Vantrel
