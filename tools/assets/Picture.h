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

    /** With the colour that `colorAt(u, v)` gives the middle of each pixel, both going from 0 to 1. */
    template <class ColorAt>
    static Picture ofUnitSquare(int width, int height, const ColorAt& colorAt) {
        return of(width, height, [&](int x, int y) {
            return colorAt((static_cast<float>(x) + 0.5F) / static_cast<float>(width),
                           (static_cast<float>(y) + 0.5F) / static_cast<float>(height));
        });
    }

    void set(int x, int y, const Color& color);
    /** All throw `std::runtime_error` when the file can't be written. A bitmap and a JPEG have no opacity. */
    void writeBmp(const std::filesystem::path& file) const;
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
