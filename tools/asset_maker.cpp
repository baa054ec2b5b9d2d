// asset_maker FOLDER: writes the data files that are better computed than drawn.
//   shared/images/DefaultTexture.bmp            what stands in for an image that can't be loaded
//   local/images/skyboxes/sky_cloudy3+6.jpg     the sky above the airport

#include <SDL_image.h>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

namespace {

namespace fs = std::filesystem;

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

/** A board of squares in two greys with a thin orange frame: seen at once, and its edges tell how it is laid.
 */
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

using Direction = std::array<float, 3>;

float mix(float a, float b, float share) {
    return a + (b - a) * share;
}

/** From 0 to 1 as `x` goes from `low` to `high`, without an edge at either. */
float smoothStep(float low, float high, float x) {
    const float share = std::clamp((x - low) / (high - low), 0.0F, 1.0F);
    return share * share * (3.0F - 2.0F * share);
}

/** A number from 0 to 1 that belongs to a point of the integer grid. */
float gridValue(int x, int y) {
    auto bits = static_cast<std::uint32_t>(x) * 0x9E3779B1U ^ static_cast<std::uint32_t>(y) * 0x85EBCA77U;
    bits = (bits ^ bits >> 15U) * 0x2C1B3C6DU;
    bits = (bits ^ bits >> 12U) * 0x297A2D39U;
    return static_cast<float>((bits ^ bits >> 15U) >> 8U) / static_cast<float>(1U << 24U);
}

/** Grid values with smooth passages between them. */
float noise(float x, float y) {
    const float left = std::floor(x);
    const float low = std::floor(y);
    const float across = smoothStep(0, 1, x - left);
    const auto i = static_cast<int>(left);
    const auto j = static_cast<int>(low);
    return mix(mix(gridValue(i, j), gridValue(i + 1, j), across),
               mix(gridValue(i, j + 1), gridValue(i + 1, j + 1), across), smoothStep(0, 1, y - low));
}

/** Noise at finer and finer scales, each half as strong as the one before. */
float cloudiness(float x, float y) {
    constexpr int octaves = 6;
    float sum = 0;
    float weight = 0.5F;
    for (int octave = 0; octave < octaves; ++octave, weight /= 2) {
        sum += weight * noise(x, y);
        x = 2.03F * x + 17.0F; // not quite doubled, so that the grids don't meet
        y = 2.03F * y + 5.0F;
    }
    return sum;
}

/** What is seen that way: haze at the horizon, blue above it, and a layer of broken clouds. */
std::array<std::uint8_t, 3> skyColor(const Direction& towards) {
    constexpr std::array haze{206.0F, 216.0F, 224.0F};
    constexpr std::array zenith{62.0F, 112.0F, 178.0F};
    constexpr std::array ground{150.0F, 158.0F, 154.0F};
    constexpr std::array cloud{244.0F, 246.0F, 248.0F};
    const float length = std::hypot(towards[0], towards[1], towards[2]);
    const float up = towards[2] / length;
    float cover = 0;
    if (up > 0) {
        const float layer = 2.2F / (up + 0.06F) / length; // flat, and bent down a little far away
        const float thickness = cloudiness(towards[0] * layer, towards[1] * layer);
        cover = smoothStep(0.5F, 0.72F, thickness) * smoothStep(0.02F, 0.22F, up) * 0.85F;
    }
    std::array<std::uint8_t, 3> color{};
    for (std::size_t i = 0; i < color.size(); ++i) {
        const float clear = up > 0 ? mix(haze[i], zenith[i], std::pow(up, 0.55F))
                                   : mix(haze[i], ground[i], smoothStep(0, 0.25F, -up));
        color[i] = static_cast<std::uint8_t>(std::lround(mix(clear, cloud[i], cover)));
    }
    return color;
}

/** What a square of the sky's strip shows at `u` across and `v` up, both from 0 to 1. */
Direction directionIn(int square, float u, float v) {
    const float across = 2 * u - 1;
    const float up = 2 * v - 1;
    switch (square) {
    case 0:
        return {across, 1, up};
    case 1:
        return {1, -across, up};
    case 2:
        return {-across, -1, up};
    case 3:
        return {-1, across, up};
    case 4:
        return {-up, across, -1};
    default:
        return {-up, -across, 1};
    }
}

/** Six squares side by side: towards +Y, +X, -Y, -X, down and up. */
bool writeSky(const fs::path& file) {
    constexpr int side = 512;
    constexpr int squares = 6;
    constexpr int quality = 92;
    constexpr int bitsPerPixel = 24;
    fs::create_directories(file.parent_path());
    SDL_Surface* const strip =
        SDL_CreateRGBSurfaceWithFormat(0, squares * side, side, bitsPerPixel, SDL_PIXELFORMAT_RGB24);
    if (strip == nullptr) {
        std::cerr << "asset_maker: " << SDL_GetError() << "\n";
        return false;
    }
    for (int y = 0; y < side; ++y) {
        auto* pixel = static_cast<std::uint8_t*>(strip->pixels) + std::ptrdiff_t{y} * strip->pitch;
        for (int x = 0; x < squares * side; ++x) {
            const auto lastPixel = static_cast<float>(side - 1); // whose middle is on the edge of the square
            const auto color = skyColor(directionIn(x / side, static_cast<float>(x % side) / lastPixel,
                                                    1 - static_cast<float>(y) / lastPixel));
            pixel = std::copy(color.begin(), color.end(), pixel);
        }
    }
    const bool isWritten = IMG_SaveJPG(strip, file.c_str(), quality) == 0;
    SDL_FreeSurface(strip);
    if (!isWritten) {
        std::cerr << "asset_maker: can't write " << file << ": " << SDL_GetError() << "\n";
    }
    return isWritten;
}

bool write(const fs::path& file, const std::string& bytes) {
    fs::create_directories(file.parent_path());
    std::ofstream out(file, std::ios::binary);
    out << bytes;
    out.close();
    if (!out) {
        std::cerr << "asset_maker: can't write " << file << "\n";
    }
    return static_cast<bool>(out);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: asset_maker FOLDER\n";
        return 2;
    }
    const fs::path folder = argv[1];
    const bool isWritten = write(folder / "shared/images/DefaultTexture.bmp", defaultTexture()) &&
                           writeSky(folder / "local/images/skyboxes/sky_cloudy3+6.jpg");
    return isWritten ? 0 : 1;
}
