// How long a capture of 1920 by 1080 to a PNG file holds the main loop up, beside reading the pixels alone
// and beside encoding and writing them there.

#include "vtl/gl/capture/BackBufferReading.h"
#include "vtl/gl/capture/ManagerFrameCapture.h"

#include "tests/support/GLContextFixture.h"
#include "tests/support/TemporaryFolder.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <vector>

namespace Vantrel {
namespace {

constexpr int width = 1920;
constexpr int height = 1080;

class CaptureBench : public benchmark::Fixture {
public:
    void SetUp(benchmark::State& /*state*/) override {
        setenv("SDL_VIDEODRIVER", "offscreen", 0);
        Reports::open([](std::string_view) {});
        Tests::startGL(Tests::fixedFunctionContext,
                       {"{width=" + std::to_string(width) + "}", "{height=" + std::to_string(height) + "}"});
        ManagerFrameCapture::init();
        drawPicture();
    }
    void TearDown(benchmark::State& /*state*/) override {
        ManagerFrameCapture::shutdown();
        Tests::stopGL();
    }

    std::string file(const char* name) const { return folder.path(name); }

private:
    /** One that compresses as a photograph does: smooth, with some noise. */
    static void drawPicture() {
        std::minstd_rand noise(1);
        std::vector<std::uint8_t> pixels;
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                const auto grain = static_cast<int>(noise() % 8);
                for (const int value : {x / 17, y / 17, (x + y) / 34, 255}) {
                    pixels.push_back(static_cast<std::uint8_t>(value + grain));
                }
            }
        }
        glDrawPixels(width, height, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
        glFinish();
    }

    Tests::TemporaryFolder folder;
};

BENCHMARK_DEFINE_F(CaptureBench, captureAndHandOver)(benchmark::State& state) {
    const std::string name = file("handed_over.png");
    for ([[maybe_unused]] auto round : state) {
        if (!ManagerFrameCapture::saveFrame(name, true, nullptr)) {
            state.SkipWithError("not saved");
        }
        state.PauseTiming();
        ManagerFrameCapture::finishSaving();
        std::filesystem::remove(name); // as most captures have new names
        state.ResumeTiming();
    }
}

/** Into memory that is there already. */
BENCHMARK_DEFINE_F(CaptureBench, bareReadPixels)(benchmark::State& state) {
    std::vector<std::uint8_t> pixels(std::size_t{width} * height * bytesOfCapturedPixel);
    glReadBuffer(GL_BACK);
    for ([[maybe_unused]] auto round : state) {
        glReadPixels(0, 0, width, height, GL_BGR, GL_UNSIGNED_BYTE, pixels.data());
    }
}

BENCHMARK_DEFINE_F(CaptureBench, captureEncodeAndWrite)(benchmark::State& state) {
    const std::string name = file("at_once.png");
    for ([[maybe_unused]] auto round : state) {
        int index = -1;
        if (!ManagerFrameCapture::saveFrame(name, false, &index)) {
            state.SkipWithError("not saved");
        }
        ManagerFrameCapture::deleteFrame(index);
        state.PauseTiming();
        std::filesystem::remove(name);
        state.ResumeTiming();
    }
}

BENCHMARK_REGISTER_F(CaptureBench, captureAndHandOver)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_REGISTER_F(CaptureBench, bareReadPixels)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_REGISTER_F(CaptureBench, captureEncodeAndWrite)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace Vantrel
