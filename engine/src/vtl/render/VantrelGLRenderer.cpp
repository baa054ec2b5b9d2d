#include "vtl/render/VantrelGLRenderer.h"

#include "vtl/base/ManagerSDLTime.h"
#include "vtl/gl/GLError.h"
#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/gl/ManagerWindowing.h"
#include "vtl/scene/camera/Camera.h"
#include "vtl/scene/object/WorldContainer.h"

#include <GL/glew.h>

namespace Vantrel {

std::unique_ptr<VantrelGLRenderer> VantrelGLRenderer::New() {
    return std::make_unique<VantrelGLRenderer>();
}

void VantrelGLRenderer::render(Camera* camera, WorldContainer* world) {
    constexpr std::int32_t beforeFrame = 808080;
    checkGLError(beforeFrame);
    renderSingleFrame(camera, world);
    ManagerSDLTime::startStopwatch(Stopwatch::stage);
    SDL_GL_SwapWindow(ManagerWindowing::getWindow());
    ManagerSDLTime::totals().swappingMs += ManagerSDLTime::readStopwatch(Stopwatch::stage);
}

void VantrelGLRenderer::renderSingleFrame(Camera* camera, WorldContainer* world) {
    constexpr std::int32_t afterCamera = 70;
    updateCamera(camera);
    ManagerSDLTime::startStopwatch(Stopwatch::stage);
    world->sort(camera);
    ManagerSDLTime::totals().sortingMs += ManagerSDLTime::readStopwatch(Stopwatch::stage);
    checkGLError(afterCamera);
    renderScene(camera, world, true);
}

void VantrelGLRenderer::renderScene(Camera* camera, WorldContainer* world, bool clear) {
    if (clear) {
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
    }
    world->render(camera);
    ManagerSDLTime::startStopwatch(Stopwatch::stage);
    glFlush();
    ManagerSDLTime::totals().flushingMs += ManagerSDLTime::readStopwatch(Stopwatch::stage);
}

void VantrelGLRenderer::updateCamera(Camera* camera) {
    ManagerSDLTime::startStopwatch(Stopwatch::stage);
    camera->update();
    ManagerSDLTime::totals().updatingCameraMs += ManagerSDLTime::readStopwatch(Stopwatch::stage);
    camera->updateCameraMatrices();
    if (ManagerOpenGLState::isCompatibilityProfile()) {
        glMatrixMode(GL_PROJECTION);
        glLoadMatrixf(camera->getProjectionMatrix().m.data());
        glMatrixMode(GL_MODELVIEW);
        glLoadMatrixf(camera->getViewMatrix().m.data());
    }
    const CameraViewport& viewport = camera->getViewport();
    glViewport(viewport.x, viewport.y, viewport.width, viewport.height);
}

} // namespace Vantrel
