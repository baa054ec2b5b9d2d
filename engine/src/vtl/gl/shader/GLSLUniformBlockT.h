#pragma once

#include "vtl/gl/GLHandle.h"

#include <GL/glew.h>
#include <cstdint>
#include <cstring>

namespace Vantrel {

/**
 * A uniform buffer with a plain structure `T` in it, attached to the binding point that `T` names. Programs
 * find it by that point. Needs a context of 3.2 or later.
 */
template <class T>
class GLSLUniformBlockT {
public:
    GLSLUniformBlockT() : buffer(GLBuffer::create()) {
        glBindBuffer(GL_UNIFORM_BUFFER, buffer.get());
        glBufferData(GL_UNIFORM_BUFFER, bufferSize, nullptr, GL_DYNAMIC_DRAW);
        send();
        glBindBufferBase(GL_UNIFORM_BUFFER, T::bindingPoint, buffer.get());
    }

    /** Sends `data` to the card, unless it is there. */
    void upload() {
        if (std::memcmp(&data, &sent, sizeof(T)) != 0) {
            send();
        }
    }

    std::uint32_t getBuffer() const { return buffer.get(); }

    T data;

private:
    /** Drivers count a block in whole vec4, and may refuse to draw from a buffer that ends before its block.
     */
    static constexpr GLsizeiptr bufferSize = (sizeof(T) + 15) / 16 * 16;

    void send() {
        glBindBuffer(GL_UNIFORM_BUFFER, buffer.get());
        glBufferSubData(GL_UNIFORM_BUFFER, 0, sizeof(T), &data);
        glBindBuffer(GL_UNIFORM_BUFFER, 0);
        sent = data;
    }

    GLBuffer buffer;
    /** What is on the card. */
    T sent;
};

} // namespace Vantrel
