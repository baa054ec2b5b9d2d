#include "vtl/gl/texture/ImageFile.h"

#include "vtl/base/Report.h"
#include "vtl/base/WholeFile.h"
#include "vtl/gl/texture/CutOffJPEG.h"
#include "vtl/gl/texture/SDLMemoryLimit.h"

#include <SDL_image.h>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <filesystem>
#include <limits>
#include <optional>
#include <string_view>
#include <utility>

namespace Vantrel {
namespace {

constexpr int bytesPerPixel = 4;

/** In memory, red, green, blue, alpha, as GL_RGBA with GL_UNSIGNED_BYTE has it. */
SDLSurface newSurface(int width, int height) {
    constexpr int bitsPerPixel = 32;
    return SDLSurface(SDL_CreateRGBSurface(0, width, height, bitsPerPixel, 0x000000FFU, 0x0000FF00U,
                                           0x00FF0000U, 0xFF000000U));
}

bool isInGLFormat(SDL_Surface& image) {
    return image.format->format == SDL_PIXELFORMAT_ABGR8888 && image.pitch == image.w * bytesPerPixel &&
           !SDL_MUSTLOCK(&image) && SDL_HasColorKey(&image) == SDL_FALSE;
}

std::uint8_t* rowOf(const SDL_Surface& image, int row) {
    return static_cast<std::uint8_t*>(image.pixels) + std::ptrdiff_t{row} * image.pitch;
}

void flipRows(SDL_Surface& image) {
    for (int upper = 0, lower = image.h - 1; upper < lower; ++upper, --lower) {
        std::swap_ranges(rowOf(image, upper), rowOf(image, upper) + image.pitch, rowOf(image, lower));
    }
}

/**
 * The largest block that reading a file of `fileSize` bytes may take: what a picture of 4096 by 4096 takes,
 * or, for a larger file, as much as deflate can get out of it; never more than the largest picture of all.
 */
std::size_t largestBlock(std::size_t fileSize, std::uint32_t longestSide) {
    constexpr std::size_t largePicture = std::size_t{4096} * 4096 * bytesPerPixel;
    constexpr std::size_t deflateRatio = 1032;
    constexpr std::size_t besidesThePicture = 1U << 20U;
    const std::size_t largest = std::size_t{longestSide} * longestSide * bytesPerPixel + besidesThePicture;
    return std::min(std::max(largePicture, deflateRatio * fileSize), largest);
}

using Reader = SDL_Surface* (*)(SDL_RWops*);

/**
 * The reader of a format whose readers stand hostile files; those of the rarer formats (GIF, SVG) free what
 * isn't theirs or leak. Null for any other format.
 */
Reader readerOf(SDL_RWops* stream, std::string_view extension) {
    if (IMG_isPNG(stream) != 0) {
        return IMG_LoadPNG_RW;
    }
    if (IMG_isJPG(stream) != 0) {
        return IMG_LoadJPG_RW;
    }
    if (IMG_isBMP(stream) != 0) {
        return IMG_LoadBMP_RW;
    }
    // A TGA file has no mark to know it by.
    return SDL_strcasecmp(std::string(extension).c_str(), ".tga") == 0 ? IMG_LoadTGA_RW : nullptr;
}

struct SDLStreamDeleter {
    void operator()(SDL_RWops* stream) const { SDL_RWclose(stream); }
};

/** The source pixels around a target pixel's centre along one axis, and the weight of the second. */
struct Sample {
    std::size_t first;
    std::size_t second;
    float weight;
};

/** Target pixel `i` of `targetSize`, on `sourceSize` source pixels. */
Sample sampleOf(std::uint32_t i, std::uint32_t targetSize, std::uint32_t sourceSize) {
    // In units of half source pixels, where pixel centres are the odd numbers.
    const float at = (2.0F * static_cast<float>(i) + 1.0F) / (2.0F * static_cast<float>(targetSize)) * 2.0F *
                     static_cast<float>(sourceSize);
    const float inPixels = std::max((at - 1.0F) / 2.0F, 0.0F);
    const auto first = std::min(static_cast<std::uint32_t>(std::floor(inPixels)), sourceSize - 1);
    return {first, std::min(first + 1, sourceSize - 1), inPixels - static_cast<float>(first)};
}

std::uint8_t mix(const std::array<const std::uint8_t*, 4>& pixels, std::size_t channel, float weightX,
                 float weightY) {
    constexpr float full = 255.0F;
    const auto value = [&](std::size_t i) { return static_cast<float>(pixels[i][channel]) / full; };
    const float upper = value(0) * (1.0F - weightX) + value(1) * weightX;
    const float lower = value(2) * (1.0F - weightX) + value(3) * weightX;
    const float mixed = (upper * (1.0F - weightY) + lower * weightY) * full;
    return static_cast<std::uint8_t>(std::clamp(mixed, 0.0F, full));
}

} // namespace

SDLSurface readImageFile(const std::string& fileName, std::uint32_t longestSide) {
    constexpr int longestStream = std::numeric_limits<int>::max(); // of SDL
    const std::optional<WholeFile> file = WholeFile::read(fileName, longestStream);
    if (!file) {
        SDL_SetError("Couldn't open %s", fileName.c_str());
        return nullptr;
    }
    return decodeImage(file->bytes(), std::filesystem::path(fileName).extension().string(), longestSide);
}

SDLSurface decodeImage(std::span<const std::byte> file, const std::string& extension,
                       std::uint32_t longestSide) {
    if (isCutOffJPEG(file)) {
        SDL_SetError("The image file is truncated");
        return nullptr;
    }
    const std::unique_ptr<SDL_RWops, SDLStreamDeleter> stream(
        SDL_RWFromConstMem(file.data(), static_cast<int>(file.size())));
    const Reader read = stream != nullptr ? readerOf(stream.get(), extension) : nullptr;
    if (read == nullptr) {
        SDL_SetError("The file is no PNG, JPEG, BMP or TGA image");
        return nullptr;
    }
    const SDLMemoryLimit limit(largestBlock(file.size(), longestSide));
    SDLSurface image(read(stream.get()));
    if (image != nullptr && (image->w <= 0 || image->h <= 0)) {
        SDL_SetError("The image has no pixels");
        return nullptr;
    }
    if (image != nullptr && (static_cast<std::uint32_t>(image->w) > longestSide ||
                             static_cast<std::uint32_t>(image->h) > longestSide)) {
        SDL_SetError("The image is larger than the graphics card takes");
        return nullptr;
    }
    return image;
}

SDLSurface convertToGLCoordinates(SDLSurface image) {
    if (!isInGLFormat(*image)) {
        SDLSurface converted = newSurface(image->w, image->h);
        if (converted == nullptr) {
            Report() << "Error converting from SDL_Image Coords to OpenGL TextureDataOwnsGLHandle Coords!\n";
            return nullptr;
        }
        // Alpha is to be copied, not mixed.
        SDL_SetSurfaceBlendMode(image.get(), SDL_BLENDMODE_NONE);
        SDL_SetSurfaceBlendMode(converted.get(), SDL_BLENDMODE_NONE);
        SDL_BlitSurface(image.get(), nullptr, converted.get(), nullptr);
        image = std::move(converted);
    }
    flipRows(*image);
    return image;
}

SDLSurface resizeImage(const SDL_Surface& source, std::uint32_t width, std::uint32_t height) {
    SDLSurface resized = newSurface(static_cast<int>(width), static_cast<int>(height));
    if (resized == nullptr) {
        return nullptr;
    }
    for (std::uint32_t y = 0; y < height; ++y) {
        const Sample sampleY = sampleOf(y, height, static_cast<std::uint32_t>(source.h));
        const std::uint8_t* const upper = rowOf(source, static_cast<int>(sampleY.first));
        const std::uint8_t* const lower = rowOf(source, static_cast<int>(sampleY.second));
        std::uint8_t* target = rowOf(*resized, static_cast<int>(y));
        for (std::uint32_t x = 0; x < width; ++x) {
            const Sample sampleX = sampleOf(x, width, static_cast<std::uint32_t>(source.w));
            const std::array<const std::uint8_t*, 4> pixels{
                upper + sampleX.first * bytesPerPixel, upper + sampleX.second * bytesPerPixel,
                lower + sampleX.first * bytesPerPixel, lower + sampleX.second * bytesPerPixel};
            for (std::size_t channel = 0; channel < bytesPerPixel; ++channel) {
                *target++ = mix(pixels, channel, sampleX.weight, sampleY.weight);
            }
        }
    }
    return resized;
}

} // namespace Vantrel
