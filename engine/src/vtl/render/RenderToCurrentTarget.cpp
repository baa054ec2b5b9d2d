#include "vtl/render/RenderToCurrentTarget.h"

#include "vtl/base/Pause.h"
#include "vtl/base/Report.h"
#include "vtl/gl/GLError.h"
#include "vtl/gl/ManagerWindowing.h"
#include "vtl/gl/ScopedClearColor.h"
#include "vtl/gl/framebuffer/VantrelFrameBufferObject.h"
#include "vtl/render/ScopedView.h"
#include "vtl/scene/camera/Camera.h"
#include "vtl/scene/light/ManagerLight.h"
#include "vtl/scene/object/WO.h"

namespace Vantrel {
namespace {

constexpr std::int32_t afterDrawing = 5006;

/** Gives the camera its kind of projection, and the matrix of that, back at its end. */
class ScopedProjection {
public:
    explicit ScopedProjection(Camera& owner) : camera(owner), type(owner.getProjectionType()) {}
    ScopedProjection(const ScopedProjection&) = delete;
    ScopedProjection& operator=(const ScopedProjection&) = delete;
    ~ScopedProjection() {
        camera.setProjectionType(type);
        camera.updateProjectionMatrix();
    }

private:
    Camera& camera;
    Camera::PROJ_MATRIX_PROJ_TYPE type;
};

void showAndWait() {
    glFlush();
    SDL_GL_SwapWindow(ManagerWindowing::getWindow());
    Report() << "Vantrel::VantrelFrameBufferObject::renderToCurrentTarget() Rendered To Screen, Press ENTER "
                "to continue...\n";
    Pause::waitForKey();
}

void chooseProjection(const WO& object, Camera& camera) {
    if (object.hasInterface(IFace::guiWidget)) {
        Report() << "Using Ortho Projection...;\n";
        camera.updateProjectionMatrixUsingOrthographicProjection();
    } else {
        Report() << "Using Perspective Projection...\n";
        camera.updateProjectionMatrixUsingPerspectiveProjection();
    }
}

} // namespace

void renderToCurrentTarget(const VantrelFrameBufferObject& target, VantrelGLRendererBase& renderer,
                           WorldContainer& world, Camera& camera, bool pause, bool clear, bool usePerspective,
                           bool updateCamera) {
    const ScopedClearColor clearColor(target.clearColor);
    const ScopedView view(renderer);
    const ScopedProjection projection(camera);
    if (!usePerspective) {
        camera.setProjectionType(Camera::PROJ_MATRIX_PROJ_TYPE::pmptORTHOGRAPHIC);
    }
    if (updateCamera) {
        renderer.updateCamera(&camera);
    } else {
        renderer.loadCamera(camera);
    }
    renderer.renderScene(&camera, &world, clear);
    checkGLError(afterDrawing);
    if (pause) {
        showAndWait();
    }
}

void renderToCurrentTarget(const VantrelFrameBufferObject& target, VantrelGLRendererBase& renderer,
                           WO& object, Camera& camera, bool pause, bool clear) {
    const ScopedClearColor clearColor(target.clearColor);
    const ScopedView view(renderer);
    const ScopedProjection projection(camera);
    camera.update();
    camera.updateFrustum();
    camera.updateViewMatrix();
    chooseProjection(object, camera);
    renderer.loadCamera(camera);
    if (clear) {
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
    }
    ManagerLight::writeLights();
    ManagerLight::synchronize(&camera);
    ManagerOpenGLState::restorePerObjectState();
    object.render(&camera);
    checkGLError(afterDrawing);
    if (pause) {
        showAndWait();
    }
}

} // namespace Vantrel
