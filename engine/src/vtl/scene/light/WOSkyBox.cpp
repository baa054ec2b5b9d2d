#include "vtl/scene/light/WOSkyBox.h"

#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/math/VectorChecks.h"
#include "vtl/scene/camera/Camera.h"

namespace Vantrel {

std::unique_ptr<WOSkyBox> WOSkyBox::New(const std::string& imageFile, MGLSkyBox::CameraHolder cameraHolder) {
    auto sky = std::make_unique<WOSkyBox>();
    sky->onCreate(imageFile, cameraHolder, MGLSkyBox::sizeFor(ManagerOpenGLState::getFarPlane()));
    return sky;
}

void WOSkyBox::onCreate(const std::string& imageFile, MGLSkyBox::CameraHolder cameraHolder, float size) {
    onCreate(std::span(&imageFile, 1), cameraHolder, size);
}

void WOSkyBox::onCreate(std::span<const std::string> imageFiles, MGLSkyBox::CameraHolder cameraHolder,
                        float size) {
    setModel(std::make_unique<MGLSkyBox>(this, imageFiles, cameraHolder, size));
    cullable = false;
    renderOrderType = 1;
    setLabel("Skybox");
}

void WOSkyBox::onKeyDown(const SDL_KeyboardEvent& event) {
    switch (event.keysym.sym) {
    case SDLK_UP:
    case SDLK_RIGHT:
        getModel()->useNextSkin();
        break;
    case SDLK_DOWN:
    case SDLK_LEFT:
        getModel()->usePreviousSkin();
        break;
    default:
        break;
    }
}

void WOSkyBox::onUpdate() {
    const Camera* const camera = skyBox().findCamera();
    if (camera == nullptr) {
        return;
    }
    getModel()->setTranslation(camera->getPosition());
    if (const Vector axis = camera->getHorizontalRotationAxis(); !(axis == lastHorizontalAxis)) {
        alignTo(axis);
    }
}

void WOSkyBox::alignTo(const Vector& axis) {
    lastHorizontalAxis = axis;
    const Vector y = acrossOr(unitY, axis, unitX);
    getModel()->setDisplayMatrix(Mat4::fromAxes(y.crossProduct(axis), y, axis));
}

} // namespace Vantrel
