#pragma once

#include <GL/glew.h>
#include <ostream>

namespace Vantrel::Tests {

/** How many GL objects of each kind there are, found by asking for every low name: drivers hand names out
 * from 1 on. */
struct GLObjectCount {
    int buffers = 0;
    int vertexArrays = 0;
    int textures = 0;
    int shaders = 0;
    int programs = 0;
    int framebuffers = 0;
    int renderbuffers = 0;
    int queries = 0;

    bool operator==(const GLObjectCount&) const = default;
};

inline GLObjectCount countGLObjects() {
    constexpr GLuint names = 512;
    GLObjectCount count;
    for (GLuint name = 1; name < names; ++name) {
        count.buffers += glIsBuffer(name);
        count.vertexArrays += glIsVertexArray(name);
        count.textures += glIsTexture(name);
        count.shaders += glIsShader(name);
        count.programs += glIsProgram(name);
        count.framebuffers += glIsFramebuffer(name);
        count.renderbuffers += glIsRenderbuffer(name);
        count.queries += glIsQuery(name);
    }
    return count;
}

inline std::ostream& operator<<(std::ostream& out, const GLObjectCount& count) {
    return out << count.buffers << " buffers, " << count.vertexArrays << " vertex arrays, " << count.textures
               << " textures, " << count.shaders << " shaders, " << count.programs << " programs, "
               << count.framebuffers << " framebuffers, " << count.renderbuffers << " renderbuffers, "
               << count.queries << " queries";
}

} // namespace Vantrel::Tests
