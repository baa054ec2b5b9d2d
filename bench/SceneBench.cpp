#include "tests/support/GLContextFixture.h"
#include "tests/support/SceneModels.h"
#include "vtl/gl/GLError.h"
#include "vtl/scene/SceneHost.h"
#include "vtl/scene/camera/CameraStandardEZNav.h"
#include "vtl/scene/object/WorldList.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <malloc.h>
#include <memory>
#include <vector>

// What a frame of 10,000 top-level objects, each a cube, costs the processor. With GALLIUM_NOOP=1, which is
// the default here, Mesa takes everything and draws nothing.

namespace Vantrel {
namespace {

constexpr int side = 100;
constexpr int objectCount = side * side;

/** A context with a list of objects in a square, of which the camera in its middle sees a fifth. */
class SceneBench {
public:
    template <class Make>
    SceneBench(const Tests::GLContextRow& context, Make make) {
        start(context);
        files = std::make_unique<Tests::CubeFiles>();
        camera = std::make_unique<CameraStandardEZNav>(nullptr, nullptr);
        camera->updateCameraMatrices();
        list = std::make_unique<WorldList>();
        for (int i = 0; i < objectCount; ++i) {
            std::unique_ptr<WO> object = make();
            object->setPosition(static_cast<float>(10 * (i % side - side / 2)),
                                static_cast<float>(10 * (i / side - side / 2)), 0);
            list->push_back(object.release()); // until destroyAll
        }
    }
    SceneBench(const SceneBench&) = delete;
    SceneBench& operator=(const SceneBench&) = delete;
    ~SceneBench() {
        list->destroyAll();
        camera.reset();
        files.reset();
        Tests::stopGL();
    }

    template <class Frame>
    void run(benchmark::State& state, Frame frame) {
        for ([[maybe_unused]] auto round : state) {
            // Never twice at one place, so that there is something to sort.
            camera->moveRelative(Vector((++frames & 1U) != 0 ? 3.0F : -3.0F, 0.01F, 0));
            camera->updateCameraMatrices();
            frame();
            glFlush();
        }
        state.counters["per_object"] =
            benchmark::Counter(static_cast<double>(objectCount),
                               benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    }

    std::unique_ptr<CameraStandardEZNav> camera;
    std::unique_ptr<WorldList> list;

private:
    static void start(const Tests::GLContextRow& context) {
        setenv("SDL_VIDEODRIVER", "offscreen", 0);
        setenv("GALLIUM_NOOP", "1", 0);
        Reports::open([](std::string_view) {});
        Tests::startGL(context);
        ManagerTexture::init();
    }

    std::unique_ptr<Tests::CubeFiles> files;
    unsigned frames = 0;
};

std::unique_ptr<WO> cube() {
    return WO::New("cube.obj");
}

std::unique_ptr<WO> nothing() {
    return Tests::objectAt(Vector());
}

constexpr Tests::GLContextRow core{4, 5, "core"};

void frameOf(benchmark::State& state, const Tests::GLContextRow& context, bool isCulling) {
    SceneBench bench(context, cube);
    ManagerOpenGLState::setFrustumCullingEnabled(isCulling);
    bench.run(state, [&] {
        bench.list->sort(bench.camera.get());
        bench.list->render(bench.camera.get());
    });
}

void frame(benchmark::State& state) {
    frameOf(state, core, false);
}

void frameWithCulling(benchmark::State& state) {
    frameOf(state, core, true);
}

void frameFixedFunction(benchmark::State& state) {
    frameOf(state, Tests::fixedFunctionContext, false);
}

void frameFixedFunctionWithCulling(benchmark::State& state) {
    frameOf(state, Tests::fixedFunctionContext, true);
}

/** The models alone. */
void drawing(benchmark::State& state) {
    SceneBench bench(core, cube);
    bench.run(state, [&] {
        for (std::size_t i = 0; i < bench.list->size(); ++i) {
            bench.list->at(i)->getModel()->render(bench.camera.get());
        }
    });
}

/** The walk over objects that draw nothing, and what the driver takes of it. */
void walking(benchmark::State& state) {
    SceneBench bench(core, nothing);
    ManagerOpenGLState::setFrustumCullingEnabled(false);
    bench.run(state, [&] { bench.list->render(bench.camera.get()); });
}

void driverOfWalking(benchmark::State& state) {
    SceneBench bench(core, nothing);
    bench.run(state, [&] {
        for (int i = 0; i < objectCount; ++i) {
            ManagerOpenGLState::restorePerObjectState();
            checkGLError(i);
        }
    });
}

void sorting(benchmark::State& state) {
    SceneBench bench(core, cube);
    bench.run(state, [&] { bench.list->sort(bench.camera.get()); });
}

void culling(benchmark::State& state) {
    SceneBench bench(core, cube);
    int seen = 0;
    bench.run(state, [&] {
        seen = 0;
        for (std::size_t i = 0; i < bench.list->size(); ++i) {
            seen += bench.list->at(i)->isInFrustum(bench.camera->getFrustum()) ? 1 : 0;
        }
    });
    state.counters["seen"] = seen;
}

/** What an instance of a file costs, and how much of that are its skins. */
void instancesOfOneFile(benchmark::State& state) {
    SceneBench bench(core, nothing);
    constexpr int count = 2000;
    for ([[maybe_unused]] auto round : state) {
        std::vector<std::unique_ptr<WO>> instances;
        instances.reserve(count);
        instances.push_back(cube());
        const std::size_t before = mallinfo2().uordblks;
        for (int i = 1; i < count; ++i) {
            instances.push_back(cube());
        }
        const auto perInstance = static_cast<double>(mallinfo2().uordblks - before) / (count - 1);
        std::vector<ModelMeshSkin> skins;
        skins.reserve(count);
        const std::size_t beforeSkins = mallinfo2().uordblks;
        for (int i = 0; i < count; ++i) {
            skins.push_back(instances[0]->getModel()->getSkin());
        }
        const double perSkin = static_cast<double>(mallinfo2().uordblks - beforeSkins) / count +
                               static_cast<double>(sizeof(ModelMeshSkin));
        state.counters["bytes_beside_skin"] = perInstance - perSkin;
        state.counters["bytes_of_skin"] = perSkin;
    }
    state.counters["parses"] = Tests::CubeParser::parseCount;
}

BENCHMARK(frame)->Unit(benchmark::kMillisecond);
BENCHMARK(frameWithCulling)->Unit(benchmark::kMillisecond);
BENCHMARK(frameFixedFunction)->Unit(benchmark::kMillisecond);
BENCHMARK(frameFixedFunctionWithCulling)->Unit(benchmark::kMillisecond);
BENCHMARK(drawing)->Unit(benchmark::kMillisecond);
BENCHMARK(walking)->Unit(benchmark::kMillisecond);
BENCHMARK(driverOfWalking)->Unit(benchmark::kMillisecond);
BENCHMARK(sorting)->Unit(benchmark::kMillisecond);
BENCHMARK(culling)->Unit(benchmark::kMillisecond);
BENCHMARK(instancesOfOneFile)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace
} // namespace Vantrel
