#pragma once

#include <GL/glew.h>
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <vector>

namespace Vantrel::Tests {

/** Red, green, blue. */
using Pixel = std::array<std::uint8_t, 3>;

/** What the current read buffer shows, rows from the bottom up. */
struct PixelPicture {
    int width = 0;
    int height = 0;
    std::vector<Pixel> pixels;

    const Pixel& at(int x, int y) const { return pixels[static_cast<std::size_t>(y * width + x)]; }
};

inline PixelPicture readPixels(int width, int height) {
    PixelPicture picture{width, height, std::vector<Pixel>(static_cast<std::size_t>(width * height))};
    // Rows of 3-byte pixels would otherwise be padded, beyond the end of the vector.
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, width, height, GL_RGB, GL_UNSIGNED_BYTE, picture.pixels.data());
    return picture;
}

/** Largest difference of a channel. */
inline int worstDifference(const Pixel& a, const Pixel& b) {
    int worst = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        worst = std::max(worst, std::abs(a[i] - b[i]));
    }
    return worst;
}

/**
 * Largest difference of a pixel from the nearest in colour of the pixel at its place and that one's
 * neighbours: edges may lie half a pixel beside.
 */
inline int worstDifference(const PixelPicture& shown, const PixelPicture& expected) {
    int worst = 0;
    for (int y = 0; y < shown.height; ++y) {
        for (int x = 0; x < shown.width; ++x) {
            int least = worstDifference(shown.at(x, y), expected.at(x, y));
            for (int i = 0; i < 9 && least > worst; ++i) {
                const int nearX = std::clamp(x + i % 3 - 1, 0, expected.width - 1);
                const int nearY = std::clamp(y + i / 3 - 1, 0, expected.height - 1);
                least = std::min(least, worstDifference(shown.at(x, y), expected.at(nearX, nearY)));
            }
            worst = std::max(worst, least);
        }
    }
    return worst;
}

} // namespace Vantrel::Tests
