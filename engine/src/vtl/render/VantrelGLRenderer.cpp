#include "vtl/render/VantrelGLRenderer.h"

#include "vtl/base/ManagerSDLTime.h"
#include "vtl/geometry/IndexedGeometryAxes.h"
#include "vtl/gl/GLError.h"
#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/gl/ManagerWindowing.h"
#include "vtl/scene/camera/Camera.h"
#include "vtl/scene/light/ManagerLight.h"
#include "vtl/scene/object/WorldContainer.h"

#include <GL/glew.h>

namespace Vantrel {
namespace {

constexpr std::int32_t beforeFrame = 808080;
constexpr std::int32_t afterCamera = 70;

/** Gives every pixel one colour, as the picture of the ids needs it, where the window has several samples. */
class ScopedSingleSample {
public:
    ScopedSingleSample() { glDisable(GL_MULTISAMPLE); }
    ScopedSingleSample(const ScopedSingleSample&) = delete;
    ScopedSingleSample& operator=(const ScopedSingleSample&) = delete;
    ~ScopedSingleSample() { glEnable(GL_MULTISAMPLE); }
};

} // namespace

std::unique_ptr<VantrelGLRenderer> VantrelGLRenderer::New() {
    return std::make_unique<VantrelGLRenderer>();
}

VantrelGLRenderer::VantrelGLRenderer() = default;

VantrelGLRenderer::~VantrelGLRenderer() = default;

void VantrelGLRenderer::render(Camera* camera, WorldContainer* world) {
    checkGLError(beforeFrame);
    renderSingleFrame(camera, world);
    captureRequestedFrames();
    ManagerSDLTime::startStopwatch(Stopwatch::stage);
    SDL_GL_SwapWindow(ManagerWindowing::getWindow());
    ManagerSDLTime::totals().swappingMs += ManagerSDLTime::readStopwatch(Stopwatch::stage);
}

void VantrelGLRenderer::renderSingleFrame(Camera* camera, WorldContainer* world) {
    updateCamera(camera);
    checkGLError(afterCamera);
    renderScene(camera, world, true);
}

void VantrelGLRenderer::renderScene(Camera* camera, WorldContainer* world, bool clear) {
    startScene(camera, clear);
    sortWorld(camera, world);
    if (ManagerOpenGLState::areAxesVisible()) {
        drawAxes(*camera);
    }
    world->render(camera);
    ManagerSDLTime::startStopwatch(Stopwatch::stageOfObjects);
    camera->render(camera);
    ManagerSDLTime::totals().renderingCameraMs += ManagerSDLTime::restartStopwatch(Stopwatch::stageOfObjects);
    world->renderGUI(camera);
    ManagerSDLTime::totals().guiMs += ManagerSDLTime::readStopwatch(Stopwatch::stageOfObjects);
    flush();
}

void VantrelGLRenderer::updateSelection(Camera* camera, WorldContainer* world, WO*& outObject,
                                        std::optional<Vector>& outPlace, int x, int y) {
    checkGLError(beforeFrame);
    renderSelectionFrame(camera, world);
    outObject = pickWOAtPixel(x, y, camera, world);
    Vector place;
    outPlace = pickWorldCoordinate(x, y, camera, place) ? std::optional(place) : std::nullopt;
}

void VantrelGLRenderer::renderSelectionDiscardResult(Camera* camera, WorldContainer* world) {
    WO* object = nullptr;
    std::optional<Vector> place;
    updateSelection(camera, world, object, place, 0, 0);
}

void VantrelGLRenderer::renderSelectionFrame(Camera* camera, WorldContainer* world) {
    updateCamera(camera);
    checkGLError(afterCamera);
    renderSelectionScene(camera, world, true);
}

void VantrelGLRenderer::renderSelectionScene(Camera* camera, WorldContainer* world, bool clear) {
    const ScopedSingleSample singleSample;
    startScene(camera, clear);
    sortWorld(camera, world);
    world->renderSelection(camera);
    camera->renderSelection(camera);
    flush();
}

void VantrelGLRenderer::startScene(Camera* camera, bool clear) {
    if (clear) {
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
    }
    if (ManagerOpenGLState::isCompatibilityProfile()) {
        glMatrixMode(GL_MODELVIEW);
    }
    ManagerSDLTime::startStopwatch(Stopwatch::stage);
    ManagerLight::synchronize(camera);
    ManagerSDLTime::totals().lightsMs += ManagerSDLTime::readStopwatch(Stopwatch::stage);
}

void VantrelGLRenderer::sortWorld(Camera* camera, WorldContainer* world) {
    ManagerSDLTime::startStopwatch(Stopwatch::stage);
    world->sort(camera);
    ManagerSDLTime::totals().sortingMs += ManagerSDLTime::readStopwatch(Stopwatch::stage);
}

void VantrelGLRenderer::flush() {
    ManagerSDLTime::startStopwatch(Stopwatch::stage);
    glFlush();
    ManagerSDLTime::totals().flushingMs += ManagerSDLTime::readStopwatch(Stopwatch::stage);
}

void VantrelGLRenderer::drawAxes(const Camera& camera) {
    constexpr float extent = 200.0F;
    ManagerSDLTime::startStopwatch(Stopwatch::stage);
    if (!axes) {
        axes = IndexedGeometryAxes::New(extent);
    }
    axes->renderAt(camera.getShaderCamera(), Mat4());
    ManagerSDLTime::totals().renderingAxesMs += ManagerSDLTime::readStopwatch(Stopwatch::stage);
}

} // namespace Vantrel
