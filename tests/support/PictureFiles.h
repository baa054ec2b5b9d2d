#pragma once

#include "tests/support/PixelReading.h"

#include <SDL.h>
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace Vantrel::Tests {

inline void writePicture(const PixelPicture& picture, const std::filesystem::path& file) {
    SDL_Surface* const surface =
        SDL_CreateRGBSurfaceWithFormat(0, picture.width, picture.height, 24, SDL_PIXELFORMAT_RGB24);
    for (int y = 0; y < picture.height; ++y) {
        auto* row = static_cast<std::uint8_t*>(surface->pixels) + (picture.height - 1 - y) * surface->pitch;
        for (int x = 0; x < picture.width; ++x) {
            row = std::copy(picture.at(x, y).begin(), picture.at(x, y).end(), row);
        }
    }
    std::filesystem::create_directories(file.parent_path());
    SDL_SaveBMP(surface, file.c_str());
    SDL_FreeSurface(surface);
}

/**
 * Leaves two pictures that should be alike, and eight times their difference, in the folder `pictures`, for a
 * person to look at; also where all is well, in the folder that the environment's KELDIN_KEEP_PICTURES names.
 */
inline void leavePictures(const PixelPicture& picture, const PixelPicture& expected, const std::string& name,
                          bool isWrong) {
    const char* const keep = std::getenv("KELDIN_KEEP_PICTURES");
    if (!isWrong && keep == nullptr) {
        return;
    }
    constexpr int exaggeration = 8;
    const std::filesystem::path folder = keep != nullptr ? keep : "pictures";
    PixelPicture difference = picture;
    for (std::size_t i = 0; i < difference.pixels.size(); ++i) {
        const int worst = worstDifference(picture.pixels[i], expected.pixels[i]);
        difference.pixels[i].fill(static_cast<std::uint8_t>(std::min(exaggeration * worst, 255)));
    }
    writePicture(picture, folder / (name + ".bmp"));
    writePicture(expected, folder / (name + "_expected.bmp"));
    writePicture(difference, folder / (name + "_difference.bmp"));
}

} // namespace Vantrel::Tests
