#pragma once

#include <GL/glew.h>
#include <string>
#include <string_view>

namespace Vantrel {

/** What the driver tells of itself through the GL debug callback; the codes are GL_DEBUG_SOURCE_* and so on.
 */
struct GLDebugMessage {
    GLenum source = 0;
    GLenum type = 0;
    GLuint id = 0;
    GLenum severity = 0;
    std::string_view text;
};

/**
 * Has the driver report its messages, inside the GL call that provokes them, or turns them off. Does nothing
 * where the driver has no debug callback.
 */
void installDebugCallback(bool enabled);

/** Reports a message, unless its id is one of those that tell nothing, and pauses when that is asked for. */
void reportGLDebugMessage(const GLDebugMessage& message);

/** The report of a message, several lines. */
std::string toString(const GLDebugMessage& message);

} // namespace Vantrel
