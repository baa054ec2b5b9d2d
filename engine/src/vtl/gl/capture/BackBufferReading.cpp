#include "vtl/gl/capture/BackBufferReading.h"

#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/gl/framebuffer/ScopedFramebufferBinding.h"

#include <GL/glew.h>
#include <algorithm>
#include <optional>

namespace Vantrel {
namespace {

/** Lets pixels be read from the window's back buffer, without gaps between rows, while it lives. */
class ScopedBackBufferReading {
public:
    ScopedBackBufferReading() {
        if (ManagerOpenGLState::areFramebufferObjectsSupported()) {
            bound.emplace();
            FramebufferFunctions::ofContext().bindFramebuffer(GL_FRAMEBUFFER, 0);
        }
        glGetIntegerv(GL_READ_BUFFER, &readBuffer);
        glGetIntegerv(GL_PACK_ALIGNMENT, &alignment);
        glReadBuffer(GL_BACK);
        glPixelStorei(GL_PACK_ALIGNMENT, 1);
    }
    ScopedBackBufferReading(const ScopedBackBufferReading&) = delete;
    ScopedBackBufferReading& operator=(const ScopedBackBufferReading&) = delete;
    ~ScopedBackBufferReading() {
        glPixelStorei(GL_PACK_ALIGNMENT, alignment);
        glReadBuffer(static_cast<GLenum>(readBuffer));
    }

private:
    std::optional<ScopedFramebufferBinding> bound;
    GLint readBuffer = GL_BACK;
    GLint alignment = 1;
};

} // namespace

void readBackBuffer(int width, int height, std::span<std::uint8_t> out) {
    const auto rowBytes = static_cast<std::ptrdiff_t>(static_cast<std::size_t>(width) * bytesOfCapturedPixel);
    {
        const ScopedBackBufferReading reading;
        glReadPixels(0, 0, width, height, GL_BGR, GL_UNSIGNED_BYTE, out.data());
    }
    auto upper = out.begin();
    auto lower = out.end() - rowBytes;
    for (; upper < lower; upper += rowBytes, lower -= rowBytes) {
        std::swap_ranges(upper, upper + rowBytes, lower);
    }
}

} // namespace Vantrel
