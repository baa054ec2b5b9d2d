#include "vtl/scene/camera/Camera.h"

#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/gl/ManagerWindowing.h"
#include "vtl/math/MatrixBuilders.h"
#include "vtl/scene/shape/MGLBoundingShell.h"

#include <algorithm>

namespace Vantrel {

Camera::Camera(GLView* view, HandlerMouseState* mouse)
    : glView(view)
    , mouseHandler(mouse)
    , viewport{0, 0, ManagerWindowing::getWindowWidth(), ManagerWindowing::getWindowHeight()}
    , fovy(ManagerOpenGLState::getFovy())
    , nearPlane(ManagerOpenGLState::getNearPlane())
    , farPlane(ManagerOpenGLState::getFarPlane())
    , aspectRatio(static_cast<float>(viewport.width) / static_cast<float>(std::max(viewport.height, 1))) {
    setModel(MGLBoundingShell::New(this, Vector(1, 1, 1)));
    Camera::updateCameraMatrices();
}

void Camera::setCameraLookDirection(const Vector& direction) {
    resetRotation();
    getModel()->setLookDirection(direction);
}

void Camera::updateCameraMatrices() {
    frustum = VantrelGeometryFrustum(aspectRatio, fovy, nearPlane, farPlane, getLookDirection(),
                                     getNormalDirection(), getPosition());
    Mat4 projection;
    buildPerspective(fovy, aspectRatio, nearPlane, farPlane, projection);
    Mat4 view;
    buildLookAt(getPosition(), getCameraLookAtPoint(), getNormalDirection(), view);
    matrices = ShaderCamera(projection, view);
}

} // namespace Vantrel
