#pragma once

#include "tools/assets/Color.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <vector>

namespace Assets {

/** Calls `work` with every number below `count`, on two threads, in no particular order. */
void forEachOnTwoThreads(int count, const std::function<void(int)>& work);

/** An image of 8 bits for each of red, green, blue and opacity; like texture coordinates it counts from its
 * lower left. */
class Picture {
public:
    Picture(int width, int height);
    /** With the colour that `colorAt(x, y)` gives each pixel. It is called on two threads. */
    template <class ColorAt>
    static Picture of(int width, int height, const ColorAt& colorAt) {
        Picture picture(width, height);
        forEachOnTwoThreads(height, [&](int y) {
            for (int x = 0; x < width; ++x) {
                picture.set(x, y, colorAt(x, y));
            }
        });
        return picture;
    }

    void set(int x, int y, const Color& color);
    /** Makes a pixel like another one. */
    void copy(int toX, int toY, int fromX, int fromY);
    /** Both throw `std::runtime_error` when the file can't be written. A JPEG has no opacity. */
    void writePng(const std::filesystem::path& file) const;
    void writeJpeg(const std::filesystem::path& file, int quality) const;

private:
    std::size_t indexOf(int x, int y) const {
        return (static_cast<std::size_t>(height - 1 - y) * static_cast<std::size_t>(width) +
                static_cast<std::size_t>(x)) *
               4;
    }

    int width;
    int height;
    std::vector<std::uint8_t> pixels;
};

} // namespace Assets
