#pragma once

#include "vtl/gl/framebuffer/VantrelFrameBufferObject.h"

namespace Vantrel {

/** Lets whatever is drawn while it lives go into a frame buffer object. */
class ScopedFrameBuffer {
public:
    explicit ScopedFrameBuffer(VantrelFrameBufferObject& frameBuffer, bool generateMipmaps = false)
        : target(frameBuffer), makesMipmaps(generateMipmaps) {
        target.bind();
    }
    ScopedFrameBuffer(const ScopedFrameBuffer&) = delete;
    ScopedFrameBuffer& operator=(const ScopedFrameBuffer&) = delete;
    ~ScopedFrameBuffer() { target.unbind(makesMipmaps); }

private:
    VantrelFrameBufferObject& target;
    bool makesMipmaps;
};

} // namespace Vantrel
