#pragma once

#include <cstdint>

namespace Vantrel {

/** The rectangle of the window that a camera draws into, in pixels with (0, 0) at the bottom left. */
struct CameraViewport {
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
};

} // namespace Vantrel
