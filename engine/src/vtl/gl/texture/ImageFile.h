#pragma once

#include <SDL.h>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace Vantrel {

struct SDLSurfaceDeleter {
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};
using SDLSurface = std::unique_ptr<SDL_Surface, SDLSurfaceDeleter>;

/**
 * Reads a PNG, JPEG, BMP or TGA image. Null, with SDL's error set, when the file can't be read, isn't one, is
 * cut off, claims far more pixels than its bytes can hold, or has a side longer than `longestSide`.
 */
SDLSurface readImageFile(const std::string& fileName, std::uint32_t longestSide);

/** The same from the bytes of the file; `extension`, with its point, tells formats that have no mark. */
SDLSurface decodeImage(std::span<const std::byte> file, const std::string& extension,
                       std::uint32_t longestSide);

/** An image as GL takes it: 4 bytes a pixel, red, green, blue and alpha, the bottom row first. Null on
 * failure. */
SDLSurface convertToGLCoordinates(SDLSurface image);

/** An image of 4 bytes a pixel scaled to another size, sampled bilinearly at each new pixel's centre. */
SDLSurface resizeImage(const SDL_Surface& source, std::uint32_t width, std::uint32_t height);

} // namespace Vantrel
