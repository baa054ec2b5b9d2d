// From an image file to a texture on the card, beside the plain library calls for the same.

#include "tests/support/GLContextFixture.h"
#include "tests/support/TemporaryFolder.h"

#include <SDL_image.h>
#include <benchmark/benchmark.h>
#include <random>

namespace Vantrel {
namespace {

/** A picture of 4096 by 4096 that compresses as a photograph does: smooth, with some noise. */
class PhotographFile {
public:
    explicit PhotographFile(int bytesPerPixel) {
        constexpr int side = 4096;
        std::minstd_rand noise(1);
        const SDLSurface surface(SDL_CreateRGBSurfaceWithFormat(0, side, side, 8 * bytesPerPixel,
                                                                bytesPerPixel == 4 ? SDL_PIXELFORMAT_RGBA32
                                                                                   : SDL_PIXELFORMAT_RGB24));
        for (int y = 0; y < side; ++y) {
            auto* pixel = static_cast<std::uint8_t*>(surface->pixels) + y * surface->pitch;
            for (int x = 0; x < side; ++x, pixel += bytesPerPixel) {
                const auto grain = static_cast<int>(noise() % 8);
                pixel[0] = static_cast<std::uint8_t>(x / 17 + grain);
                pixel[1] = static_cast<std::uint8_t>(y / 17 + grain);
                pixel[2] = static_cast<std::uint8_t>((x + y) / 34 + grain);
                if (bytesPerPixel == 4) {
                    pixel[3] = 255;
                }
            }
        }
        IMG_SavePNG(surface.get(), path.c_str());
    }

    Tests::TemporaryFolder folder;
    std::string path = folder.path("photograph.png");
};

const std::string& photograph(std::int64_t bytesPerPixel) {
    static const PhotographFile opaque(3);
    static const PhotographFile withAlpha(4);
    return bytesPerPixel == 4 ? withAlpha.path : opaque.path;
}

class TextureBench : public benchmark::Fixture {
public:
    void SetUp(benchmark::State& state) override {
        Reports::open([](std::string_view) {});
        photograph(state.range(0));
        Tests::startGL({3, 3, "compatibility"});
        ManagerTexture::init();
    }
    void TearDown(benchmark::State& /*state*/) override { Tests::stopGL(); }
};

BENCHMARK_DEFINE_F(TextureBench, ourImageToCard)(benchmark::State& state) {
    for (auto _ : state) {
        const auto texture = ManagerTexture::loadTexture(photograph(state.range(0)), 0, 0, true, GL_RGBA,
                                                         GL_RGBA, GL_UNSIGNED_BYTE);
        if (texture->getTexData()->width != 4096) {
            state.SkipWithError("not loaded");
        }
        glFinish();
        state.PauseTiming();
        ManagerTexture::init(); // forgets the image
        state.ResumeTiming();
    }
}

BENCHMARK_DEFINE_F(TextureBench, bareImageToCard)(benchmark::State& state) {
    for (auto _ : state) {
        const SDLSurface surface(IMG_Load(photograph(state.range(0)).c_str()));
        const GLTexture texture = GLTexture::create();
        glBindTexture(GL_TEXTURE_2D, texture.get());
        glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, surface->w, surface->h, 0,
                     state.range(0) == 4 ? GL_RGBA : GL_RGB, GL_UNSIGNED_BYTE, surface->pixels);
        glGenerateMipmap(GL_TEXTURE_2D);
        glFinish();
    }
}

/** Bytes of a pixel in the file. */
BENCHMARK_REGISTER_F(TextureBench, ourImageToCard)->Arg(3)->Arg(4)->Unit(benchmark::kMillisecond);
BENCHMARK_REGISTER_F(TextureBench, bareImageToCard)->Arg(3)->Arg(4)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace Vantrel
