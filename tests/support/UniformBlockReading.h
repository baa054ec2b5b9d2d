#pragma once

#include <GL/glew.h>

namespace Vantrel::Tests {

/** What is on the card for a uniform block of that structure, at the structure's binding point. */
template <class Block>
Block blockOnCard() {
    GLint buffer = 0;
    glGetIntegeri_v(GL_UNIFORM_BUFFER_BINDING, Block::bindingPoint, &buffer);
    Block block;
    glBindBuffer(GL_UNIFORM_BUFFER, static_cast<GLuint>(buffer));
    glGetBufferSubData(GL_UNIFORM_BUFFER, 0, sizeof block, &block);
    glBindBuffer(GL_UNIFORM_BUFFER, 0);
    return block;
}

} // namespace Vantrel::Tests
