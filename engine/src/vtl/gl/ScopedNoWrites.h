#pragma once

#include <GL/glew.h>
#include <array>

namespace Vantrel {

/** Keeps colours and depths from being written while it lives; both masks are restored. */
class ScopedNoWrites {
public:
    ScopedNoWrites() {
        glGetBooleanv(GL_COLOR_WRITEMASK, colors.data());
        glGetBooleanv(GL_DEPTH_WRITEMASK, &depths);
        glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_FALSE);
        glDepthMask(GL_FALSE);
    }
    ScopedNoWrites(const ScopedNoWrites&) = delete;
    ScopedNoWrites& operator=(const ScopedNoWrites&) = delete;
    ~ScopedNoWrites() {
        glColorMask(colors[0], colors[1], colors[2], colors[3]);
        glDepthMask(depths);
    }

private:
    std::array<GLboolean, 4> colors{};
    GLboolean depths = GL_TRUE;
};

} // namespace Vantrel
