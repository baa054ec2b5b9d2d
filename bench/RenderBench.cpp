#include "tests/support/GLContextFixture.h"
#include "tests/support/SceneModels.h"
#include "vtl/render/VantrelGLRenderer.h"
#include "vtl/scene/SceneHost.h"
#include "vtl/scene/camera/CameraStandardEZNav.h"
#include "vtl/scene/light/ManagerLight.h"
#include "vtl/scene/light/WOLight.h"
#include "vtl/scene/object/WorldList.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <memory>

// What the renderer itself takes for a frame, beside a bare clear and swap, and what a pick costs beside a
// frame. The first is for Mesa without drawing (GALLIUM_NOOP=1 in the environment); the second also with.

namespace Vantrel {
namespace {

constexpr Tests::GLContextRow core{4, 5, "core"};
constexpr int side = 32;

/** A context, a renderer, and a world of `count` cubes, with a light, all in view. */
class RenderBench {
public:
    explicit RenderBench(const Tests::GLContextRow& context, int count = 0) {
        setenv("SDL_VIDEODRIVER", "offscreen", 0);
        Reports::open([](std::string_view) {});
        Tests::startGL(context, {"{width=800}", "{height=600}"});
        ManagerTexture::init();
        ManagerLight::init();
        ManagerOpenGLState::setAxesVisible(false);
        files = std::make_unique<Tests::CubeFiles>();
        camera = std::make_unique<CameraStandardEZNav>(nullptr, nullptr);
        camera->setPosition(-80, 0, 0);
        renderer = VantrelGLRenderer::New();
        list = std::make_unique<WorldList>();
        for (int i = 0; i < count; ++i) {
            std::unique_ptr<WO> object = WO::New("cube.obj");
            object->setPosition(0, static_cast<float>(3 * (i % side - side / 2)),
                                static_cast<float>(3 * (i / side - side / 2)));
            list->push_back(object.release()); // until destroyAll
        }
    }
    RenderBench(const RenderBench&) = delete;
    RenderBench& operator=(const RenderBench&) = delete;
    ~RenderBench() {
        list->destroyAll();
        renderer.reset();
        camera.reset();
        files.reset();
        ManagerLight::shutdown();
        Tests::stopGL();
    }

    std::unique_ptr<CameraStandardEZNav> camera;
    std::unique_ptr<VantrelGLRenderer> renderer;
    std::unique_ptr<WorldList> list;

private:
    std::unique_ptr<Tests::CubeFiles> files;
};

/** By itself, so that its instructions can be counted. */
[[gnu::noinline]] void bareClearAndSwap() {
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
    glFlush();
    SDL_GL_SwapWindow(ManagerWindowing::getWindow());
}

void emptyFrameIn(benchmark::State& state, const Tests::GLContextRow& context) {
    const RenderBench bench(context);
    for ([[maybe_unused]] auto round : state) {
        bench.renderer->render(bench.camera.get(), bench.list.get());
    }
}

void bareFrameIn(benchmark::State& state, const Tests::GLContextRow& context) {
    const RenderBench bench(context);
    for ([[maybe_unused]] auto round : state) {
        bareClearAndSwap();
    }
}

void emptyFrame(benchmark::State& state) {
    emptyFrameIn(state, core);
}

void bareFrame(benchmark::State& state) {
    bareFrameIn(state, core);
}

void emptyFrameFixedFunction(benchmark::State& state) {
    emptyFrameIn(state, Tests::fixedFunctionContext);
}

void bareFrameFixedFunction(benchmark::State& state) {
    bareFrameIn(state, Tests::fixedFunctionContext);
}

void frameOfAThousand(benchmark::State& state) {
    const RenderBench bench(core, side * side);
    for ([[maybe_unused]] auto round : state) {
        bench.renderer->render(bench.camera.get(), bench.list.get());
        glFinish();
    }
}

void pickOfAThousand(benchmark::State& state) {
    const RenderBench bench(core, side * side);
    WO* object = nullptr;
    std::optional<Vector> place;
    for ([[maybe_unused]] auto round : state) {
        bench.renderer->updateSelection(bench.camera.get(), bench.list.get(), object, place, 400, 300);
    }
}

BENCHMARK(emptyFrame)->Unit(benchmark::kMicrosecond);
BENCHMARK(bareFrame)->Unit(benchmark::kMicrosecond);
BENCHMARK(emptyFrameFixedFunction)->Unit(benchmark::kMicrosecond);
BENCHMARK(bareFrameFixedFunction)->Unit(benchmark::kMicrosecond);
BENCHMARK(frameOfAThousand)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(pickOfAThousand)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace Vantrel
