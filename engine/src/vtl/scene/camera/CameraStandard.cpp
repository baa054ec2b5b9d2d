#include "vtl/scene/camera/CameraStandard.h"

#include "vtl/base/Report.h"
#include "vtl/scene/SceneHost.h"
#include "vtl/scene/camera/HandlerMouseState.h"
#include "vtl/scene/camera/HeldKeys.h"
#include "vtl/scene/camera/LookAngles.h"
#include "vtl/scene/model/Model.h"
#include "vtl/scene/object/WOGJoint.h"

namespace Vantrel {

void CameraStandard::onMouseDown(const SDL_MouseButtonEvent& event) {
    Camera::onMouseDown(event);
    if (SceneHost::findCamera() != this) {
        return; // what was selected has changed the camera
    }
    if (mouseHandler == nullptr || glView == nullptr || !mouseHandler->isLeftPressed() ||
        getIsLockedWRTparent() || !isKeyHeld(SDL_SCANCODE_LALT)) {
        return;
    }
    WO* const selected = selectAtPress();
    const Vector* const point = selected != nullptr ? SceneHost::find()->getSelectedWorldCoord() : nullptr;
    if (point != nullptr) {
        attachCameraToWO(selected, *point);
    } else {
        Report() << "User did NOT click on a WO... Cannot attach camera...\n";
    }
}

void CameraStandard::onMouseUp(const SDL_MouseButtonEvent& event) {
    Camera::onMouseUp(event);
    if (getIsLockedWRTparent()) {
        detachCameraFromWO();
    }
}

void CameraStandard::onMouseMove(const SDL_MouseMotionEvent& event) {
    const bool isOrbiting = mouseHandler != nullptr && mouseHandler->isLeftDown() && isAttachedToJoint();
    if (isOrbiting) {
        dragOrbit();
    }
    if (!isOrbiting || mouseHandler->isRightDown()) {
        Camera::onMouseMove(event);
    }
}

void CameraStandard::dragOrbit() {
    const auto dx = static_cast<float>(mouseHandler->getDx());
    const auto dy = static_cast<float>(mouseHandler->getDy());
    if (isKeyHeld(SDL_SCANCODE_LCTRL)) {
        orbitElevation -= dy * orbitDragRate;
    } else {
        constexpr float pixelsPerScale = 100.0F;
        orbitAzimuth -= dx * orbitDragRate;
        setActorDistance(getActorDistance() + dy / pixelsPerScale);
    }
}

bool CameraStandard::attachCameraToWO(WO* object, const Vector& point) {
    if (!Camera::attachCameraToWO(object, point)) {
        return false;
    }
    const WOGJoint* const orbited = getJoint();
    const Vector fromPoint = getPosition() - orbited->getAnchorWorld();
    orbitFrame.setIdentity();
    orbitAzimuth = azimuthOf(fromPoint);
    orbitElevation = 0.0F;
    orbitRadius = fromPoint.magnitude();
    return true;
}

void CameraStandard::update() {
    Model* const pose = getModel();
    if (!isAttachedToJoint() || pose == nullptr) {
        return;
    }
    const Vector up = getHorizontalRotationAxis();
    pose->resetRotation(); // an axis along X leaves a choice, which must not be another one each time
    lookAlong(unitX, up);
    orbitFrame = pose->getDisplayMatrix();
    pose->rotateAboutRelZ(orbitAzimuth);
    pose->rotateAboutRelY(orbitElevation);
    const Vector outwards = pose->getXAxis();
    const float distance = orbitRadius * actorDistance;
    setPosition(getJoint()->getAnchorWorld() + outwards * distance);
    lookAlong(outwards * (distance < 0.0F ? 1.0F : -1.0F), up);
}

} // namespace Vantrel
