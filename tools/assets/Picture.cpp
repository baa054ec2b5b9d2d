#include "tools/assets/Picture.h"

#include <SDL_image.h>
#include <cmath>
#include <memory>
#include <stdexcept>
#include <thread>

namespace Assets {
namespace {

struct SurfaceFree {
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};
using Surface = std::unique_ptr<SDL_Surface, SurfaceFree>;

std::uint8_t toByte(float value) {
    return static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0F, 1.0F) * 255.0F));
}

/** What `save` makes of the pixels, whose first row is the upper one. */
template <class Save>
void write(const std::filesystem::path& file, const std::vector<std::uint8_t>& pixels, int width, int height,
           const Save& save) {
    std::filesystem::create_directories(file.parent_path());
    constexpr int bitsPerPixel = 32;
    const Surface surface(SDL_CreateRGBSurfaceWithFormatFrom(const_cast<std::uint8_t*>(pixels.data()), width,
                                                             height, bitsPerPixel, width * 4,
                                                             SDL_PIXELFORMAT_RGBA32));
    if (!surface || save(surface.get()) != 0) {
        throw std::runtime_error("can't write " + file.string() + ": " + SDL_GetError());
    }
}

} // namespace

void forEachOnTwoThreads(int count, const std::function<void(int)>& work) {
    const auto everyOther = [&](int first) {
        for (int i = first; i < count; i += 2) {
            work(i);
        }
    };
    std::jthread helper(everyOther, 1);
    everyOther(0);
}

Picture::Picture(int width_, int height_)
    : width(width_)
    , height(height_)
    , pixels(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_) * 4) {
}

void Picture::set(int x, int y, const Color& color) {
    std::uint8_t* const pixel = pixels.data() + indexOf(x, y);
    pixel[0] = toByte(color.r);
    pixel[1] = toByte(color.g);
    pixel[2] = toByte(color.b);
    pixel[3] = toByte(color.a);
}

void Picture::writeBmp(const std::filesystem::path& file) const {
    write(file, pixels, width, height, [&](SDL_Surface* surface) {
        const Surface opaque(SDL_ConvertSurfaceFormat(surface, SDL_PIXELFORMAT_BGR24, 0));
        return opaque ? SDL_SaveBMP(opaque.get(), file.c_str()) : -1;
    });
}

void Picture::writePng(const std::filesystem::path& file) const {
    write(file, pixels, width, height,
          [&](SDL_Surface* surface) { return IMG_SavePNG(surface, file.c_str()); });
}

void Picture::writeJpeg(const std::filesystem::path& file, int quality) const {
    write(file, pixels, width, height,
          [&](SDL_Surface* surface) { return IMG_SaveJPG(surface, file.c_str(), quality); });
}

} // namespace Assets
