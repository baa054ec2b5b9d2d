#include "tools/assets/DefaultTexture.h"

#include <array>
#include <cstdint>

namespace Assets {
namespace {

void appendLittleEndian(std::string& bytes, std::uint32_t value, int count) {
    for (int i = 0; i < count; ++i) {
        bytes.push_back(static_cast<char>(value >> (8 * i) & 0xFFU));
    }
}

/** The head of a Windows bitmap of 3 bytes a pixel; a row is a whole number of 4 bytes here. */
std::string bitmapHeader(std::uint32_t width, std::uint32_t height) {
    constexpr std::uint32_t headerBytes = 54;
    constexpr std::uint32_t infoBytes = 40;
    constexpr std::uint32_t bitsPerPixel = 24;
    const std::uint32_t pixelBytes = width * height * 3;
    std::string bytes = "BM";
    for (const std::uint32_t value : {headerBytes + pixelBytes, 0U, headerBytes, infoBytes, width, height}) {
        appendLittleEndian(bytes, value, 4);
    }
    appendLittleEndian(bytes, 1, 2); // planes
    appendLittleEndian(bytes, bitsPerPixel, 2);
    for (const std::uint32_t value : {0U, pixelBytes, 0U, 0U, 0U, 0U}) {
        appendLittleEndian(bytes, value, 4);
    }
    return bytes;
}

} // namespace

std::string defaultTexture() {
    constexpr std::uint32_t side = 64;
    constexpr std::uint32_t square = 8;
    using BlueGreenRed = std::array<std::uint8_t, 3>;
    constexpr BlueGreenRed light{200, 200, 200};
    constexpr BlueGreenRed dark{120, 120, 120};
    constexpr BlueGreenRed frame{0, 128, 255};
    std::string bytes = bitmapHeader(side, side);
    for (std::uint32_t y = 0; y < side; ++y) {
        for (std::uint32_t x = 0; x < side; ++x) {
            const bool isFrame = x == 0 || y == 0 || x == side - 1 || y == side - 1;
            const BlueGreenRed color = isFrame ? frame : (x / square + y / square) % 2 == 0 ? light : dark;
            bytes.append(color.begin(), color.end());
        }
    }
    return bytes;
}

} // namespace Assets
