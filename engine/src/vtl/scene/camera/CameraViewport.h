#pragma once

#include <cstdint>

namespace Vantrel {

/** The rectangle of the window that a camera draws into, in pixels with (0, 0) at the bottom left. */
class CameraViewport {
public:
    CameraViewport() = default;
    CameraViewport(std::int32_t left, std::int32_t bottom, std::int32_t width_, std::int32_t height_)
        : x(left), y(bottom), width(width_), height(height_) {}
    virtual ~CameraViewport() = default;

    /** In the order x, y, width, height. */
    void getViewport(int out[4]) const {
        out[0] = x;
        out[1] = y;
        out[2] = width;
        out[3] = height;
    }

    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
};

} // namespace Vantrel
