#include "vtl/scene/camera/Camera.h"

#include "vtl/base/Report.h"
#include "vtl/base/SourceLocation.h"
#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/gl/ManagerWindowing.h"
#include "vtl/math/MatrixBuilders.h"
#include "vtl/math/VectorChecks.h"
#include "vtl/scene/SceneHost.h"
#include "vtl/scene/camera/HandlerMouseState.h"
#include "vtl/scene/camera/HeldKeys.h"
#include "vtl/scene/camera/LookAngles.h"
#include "vtl/scene/object/WOGJoint.h"
#include "vtl/scene/shape/MGLBoundingShell.h"

#include <algorithm>
#include <cmath>

namespace Vantrel {
namespace {

constexpr float radiansPerDegree = 0.017453292F;
constexpr float degreesPerRadian = 57.295776F;

bool isFinite(const VantrelGeometryFrustum& frustum) {
    for (std::uint32_t i = 0; i < 6; ++i) {
        if (!isFinite(frustum.getPlaneNormal(i)) || !std::isfinite(frustum.getPlaneCoef(i))) {
            return false;
        }
    }
    return true;
}

void setIfFinite(float& field, float value) {
    if (std::isfinite(value)) {
        field = value;
    }
}

void warnOfNull(const char* what, const char* operation) {
    Report() << "WARNING: Camera has NULL " << what << ". Ignoring Vantrel::Camera::" << operation
             << "()...\n";
}

} // namespace

std::ostream& operator<<(std::ostream& out, Camera::PROJ_MATRIX_PROJ_TYPE type) {
    out << "Camera::PROJ_MATRIX_PROJ_TYPE::";
    switch (type) {
    case Camera::PROJ_MATRIX_PROJ_TYPE::pmptPERSPECTIVE:
        return out << "pmptPERSPECTIVE";
    case Camera::PROJ_MATRIX_PROJ_TYPE::pmptORTHOGRAPHIC:
        return out << "pmptORTHOGRAPHIC";
    }
    return out << "  ERROR type not found for " << static_cast<int>(type) << ", " << locationText();
}

Camera::Camera(GLView* view, HandlerMouseState* mouse)
    : glView(view)
    , mouseHandler(mouse)
    , viewport(0, 0, ManagerWindowing::getWindowWidth(), ManagerWindowing::getWindowHeight())
    , fovy(ManagerOpenGLState::getFovy())
    , nearPlane(ManagerOpenGLState::getNearPlane())
    , farPlane(ManagerOpenGLState::getFarPlane()) {
    setVisible(false);
    setModel(MGLBoundingShell::New(this, Vector(1, 1, 1)));
    buildOrthographic(0, 1, 0, 1, -1, 1, guiProjectionMatrix);
    Camera::setCameraAspectRatio(static_cast<float>(viewport.width) / static_cast<float>(viewport.height));
    Camera::updateCameraMatrices();
}

void Camera::setPosition(const Vector& place) {
    if (isFinite(place)) {
        WO::setPosition(place);
    }
}

void Camera::setPositionOfThisOnly(const Vector& place) {
    if (isFinite(place)) {
        WO::setPositionOfThisOnly(place);
    }
}

void Camera::moveRelativeThisOnly(const Vector& amount) {
    if (isFinite(getPosition() + amount)) {
        WO::moveRelativeThisOnly(amount);
    }
}

void Camera::moveRelative(const Vector& amount) {
    if (isFinite(getPosition() + amount)) {
        WO::moveRelative(amount);
    }
}

bool Camera::hasMouse(const char* operation) const {
    if (mouseHandler == nullptr) {
        warnOfNull("mouseHandler", operation);
    }
    return mouseHandler != nullptr;
}

bool Camera::hasMouseAndView(const char* operation) const {
    if (!hasMouse(operation)) {
        return false;
    }
    if (glView == nullptr) {
        warnOfNull("glView", operation);
    }
    return glView != nullptr;
}

WO* Camera::selectAtPress() {
    SceneHost* const host = SceneHost::find();
    if (host == nullptr) {
        return nullptr;
    }
    int x = 0;
    int y = 0;
    mouseHandler->getMouseDownPosition(x, y);
    updateProjectionMatrix();
    updateViewMatrix();
    host->processSelection(x, y, this);
    return host->getSelectedWO();
}

void Camera::onMouseDown(const SDL_MouseButtonEvent& event) {
    if (!hasMouseAndView("onMouseDown") || !isKeyHeld(SDL_SCANCODE_LCTRL)) {
        return;
    }
    if (WO* const selected = selectAtPress()) {
        selected->onSelected(event);
    }
}

void Camera::onMouseUp(const SDL_MouseButtonEvent& /*event*/) {
    hasMouse("onMouseUp");
}

void Camera::onMouseWheelScroll(const SDL_MouseWheelEvent& /*event*/) {
    hasMouse("onMouseWheelScroll");
}

void Camera::onMouseMove(const SDL_MouseMotionEvent& /*event*/) {
    if (!hasMouse("onMouseMove")) {
        return;
    }
    if (mouseHandler->isLeftDown()) {
        changeLookDirection(mouseHandler->getDx(), mouseHandler->getDy());
    }
    if (mouseHandler->isRightDown()) {
        stepByDrag(mouseHandler->getDy());
    }
}

void Camera::stepByDrag(int pixels) {
    constexpr int pixelsPerStep = 5;
    constexpr int furthest = 1 << 15; // so that no made-up event keeps the main loop
    const int distance = std::abs(std::clamp(pixels, -furthest, furthest));
    for (int begun = 0; begun < distance; begun += pixelsPerStep) {
        if (pixels < 0) {
            moveInLookDirection();
        } else {
            moveOppositeLookDirection();
        }
    }
}

void Camera::moveInLookDirection(float distance) {
    setPosition(getPosition() + getLookDirection() * distance);
}

void Camera::moveLeft() {
    setPosition(getPosition() + Vector(&getDisplayMatrix().m[4]) * stepLength());
}

void Camera::moveRight() {
    setPosition(getPosition() - Vector(&getDisplayMatrix().m[4]) * stepLength());
}

void Camera::changeLookDirection(int dx, int dy) {
    const float sideways = -static_cast<float>(dx) / mouseSensitivity;
    const float downwards = static_cast<float>(dy) / mouseSensitivity;
    Model* const pose = getModel();
    if (pose == nullptr || (dx == 0 && dy == 0) || !std::isfinite(sideways) || !std::isfinite(downwards)) {
        return;
    }
    pose->rotateAboutAxis(horizontalRotationAxis, sideways);
    pose->rotateAboutRelY(downwards);
    // The rounding of thousands of turns would add up.
    pose->setLookDirection(pose->getLookDirection());
}

bool Camera::attachCameraToWO(WO* object, const Vector& point) {
    if (object == nullptr || object->isInTreeOf(*this) || !isFinite(point)) {
        return false;
    }
    setParentWorldObject(object);
    const Vector& up = horizontalRotationAxis;
    const Vector left = up.crossProduct((point - getPosition()).normalizeMe()).normalizeMe();
    lockWRTparent(std::make_unique<WOGJoint>(this, point - object->getPosition(), up,
                                             left.crossProduct(up).normalizeMe()));
    return true;
}

void Camera::detachCameraFromWO() {
    if (getJoint() == nullptr) {
        return;
    }
    const Vector place = getPosition();
    const Mat4 orientation = getDisplayMatrix();
    unLockWRTparent();
    setParentWorldObject(nullptr);
    if (Model* const pose = getModel()) {
        pose->resetTransforms();
        pose->setTranslation(place); // not by setPosition, which would take the children along
        pose->setDisplayMatrix(orientation);
    }
}

float Camera::getActorDistance() const {
    const WOGJoint* const held = getJoint();
    return held != nullptr ? held->getScale() : 0.0F;
}

void Camera::setActorDistance(float scale) {
    WOGJoint* const held = getJoint();
    if (held == nullptr) {
        Report()
            << "WARNING: CameraOLD is not watching a WO, no joint exists from which to measure distance\n"
            << "\tno value set...\n\n";
        return;
    }
    if (std::isfinite(scale)) {
        held->setScale(scale);
        actorDistance = scale;
    }
}

void Camera::setCameraVelocity(float metres) {
    setIfFinite(camVelocity, metres);
}

bool Camera::isRefusedWhileAttached(const char* operation) const {
    if (getIsLockedWRTparent()) {
        Report() << "Cannot set camera look at point when it is attached\n"
                 << "to a parent... Returning from Vantrel::Camera::" << operation << "\n"
                 << "w/ no action taken...\n";
        return true;
    }
    return false;
}

void Camera::setCameraLookAtPoint(const Vector& point) {
    if (!isRefusedWhileAttached("setCameraLookAtPoint")) {
        lookTowards(point - getPosition());
    }
}

void Camera::setCameraLookDirection(const Vector& direction) {
    if (!isRefusedWhileAttached("setCameraLookDirection")) {
        lookTowards(direction);
    }
}

void Camera::lookTowards(const Vector& direction) {
    Model* const pose = getModel();
    const Vector look = direction.normalizeMe();
    if (pose == nullptr || !isDirection(look)) {
        return;
    }
    pose->resetRotation();
    pose->rotateAboutRelZ(azimuthOf(look));
    pose->rotateAboutRelY(elevationOf(look));
    pose->setLookDirection(look);
    updateViewMatrix();
}

void Camera::lookAlong(const Vector& look, const Vector& up) {
    Model* const pose = getModel();
    if (pose == nullptr || !isDirection(look.normalizeMe())) {
        return;
    }
    pose->setNormalDirection(up);
    pose->setLookDirection(look);
}

void Camera::setCameraNormalPoint(const Vector& point) {
    if (Model* const pose = getModel(); !isRefusedWhileAttached("setCameraNormalPoint") && pose != nullptr) {
        pose->setNormalDirection(point - getPosition());
    }
}

void Camera::setCameraNormalDirection(const Vector& direction) {
    Model* const pose = getModel();
    if (!isRefusedWhileAttached("setCameraNormalDirection") && pose != nullptr) {
        pose->setNormalDirection(direction);
    }
}

void Camera::setMouseSensitivity(float pixels) {
    if (pixels != 0.0F) {
        setIfFinite(mouseSensitivity, pixels);
    }
}

void Camera::startCameraBehavior() {
    Report() << "Overload Vantrel::Camera::startCameraBehavior() within a\n"
             << "Camera that needs to compute any initial information\n"
             << "before update is invoked during each render. For example\n"
             << "if this camera chases a WO; compute any initial data that\n"
             << "Vantrel::Camera::update() may utilize. If no need for this exists\n"
             << "simply overload this method with an empty body in your own\n"
             << "Camera subclass.\n";
}

void Camera::setActorToWatch(WO* actor) {
    actorToWatch = actor;
    startCameraBehavior();
}

void Camera::setCameraFOVy(float degrees) {
    if (degrees > 0.0F && degrees < 180.0F) {
        fovy = degrees;
    }
}

void Camera::setCameraHorzFOV(float degrees) {
    const float halfWidth = std::tan(degrees * radiansPerDegree * 0.5F);
    setCameraFOVy(2 * std::atan(halfWidth / aspectRatio) * degreesPerRadian);
}

float Camera::getCameraHorzFOV() const {
    return 2 * std::atan(aspectRatio * std::tan(fovy * radiansPerDegree * 0.5F)) * degreesPerRadian;
}

void Camera::setCameraAspectRatio(float ratio) {
    if (ratio > 0.0F) {
        setIfFinite(aspectRatio, ratio);
    }
}

void Camera::setCameraNearClippingPlaneDistance(float distance) {
    setIfFinite(nearPlane, distance);
}

void Camera::setCameraFarClippingPlaneDistance(float distance) {
    setIfFinite(farPlane, distance);
}

void Camera::setHorizontalRotationAxis(const Vector& axis) {
    const Vector up = axis.normalizeMe();
    if (isDirection(up)) {
        horizontalRotationAxis = up;
        lookAlong(getLookDirection(), up);
    }
}

void Camera::setViewMatrix(const float* elements16) {
    setMatrices(getProjectionMatrix(), Mat4(elements16));
}

void Camera::setOrthographicPlanes(float left, float right, float bottom, float top, float near, float far) {
    setIfFinite(orthoLeft, left);
    setIfFinite(orthoRight, right);
    setIfFinite(orthoBottom, bottom);
    setIfFinite(orthoTop, top);
    setIfFinite(nearPlane, near);
    setIfFinite(farPlane, far);
}

void Camera::setOrthographicExtent(float width, float height) {
    setOrthographicPlanes(-width / 2, width / 2, -height / 2, height / 2, nearPlane, farPlane);
}

Vector Camera::getOrthographicExtent() const {
    return {std::abs(farPlane - nearPlane), std::abs(orthoLeft - orthoRight),
            std::abs(orthoTop - orthoBottom)};
}

void Camera::setProjectionType(PROJ_MATRIX_PROJ_TYPE type) {
    camProjectionType = type;
    if (type == PROJ_MATRIX_PROJ_TYPE::pmptORTHOGRAPHIC) {
        setMatrices(guiProjectionMatrix, getViewMatrix());
    }
}

void Camera::updateCameraMatrices() {
    updateFrustum();
    setMatrices(projectionOfType(), viewFromPose());
}

void Camera::updateFrustum() {
    const VantrelGeometryFrustum seen(aspectRatio, fovy, nearPlane, farPlane, getLookDirection(),
                                      getNormalDirection(), getPosition());
    if (isFinite(seen)) {
        frustum = seen;
    }
}

void Camera::updateProjectionMatrix() {
    setMatrices(projectionOfType(), getViewMatrix());
}

void Camera::updateProjectionMatrixUsingPerspectiveProjection() {
    setMatrices(perspective(), getViewMatrix());
}

void Camera::updateProjectionMatrixUsingOrthographicProjection() {
    setMatrices(orthographic(), getViewMatrix());
}

void Camera::updateViewMatrix() {
    setMatrices(getProjectionMatrix(), viewFromPose());
}

Mat4 Camera::projectionOfType() const {
    switch (camProjectionType) {
    case PROJ_MATRIX_PROJ_TYPE::pmptPERSPECTIVE:
        return perspective();
    case PROJ_MATRIX_PROJ_TYPE::pmptORTHOGRAPHIC:
        return orthographic();
    }
    Report() << "WARNING: Vantrel::Camera::updateProjectionMatrix()... this->camProjectionType\n"
             << "   is set to an invalid alue of " << static_cast<int>(camProjectionType) << "\n"
             << "   valid values are " << PROJ_MATRIX_PROJ_TYPE::pmptPERSPECTIVE << " or "
             << PROJ_MATRIX_PROJ_TYPE::pmptORTHOGRAPHIC
             << ", updating using Vantrel::Camera::updateProjectionMatrixUsingPerspectiveProjection()...\n";
    return perspective();
}

Mat4 Camera::perspective() const {
    Mat4 projection;
    buildPerspective(fovy, aspectRatio, nearPlane, farPlane, projection);
    return projection;
}

Mat4 Camera::orthographic() const {
    Mat4 projection;
    buildOrthographic(orthoLeft, orthoRight, orthoBottom, orthoTop, nearPlane, farPlane, projection);
    return projection;
}

Mat4 Camera::viewFromPose() const {
    Mat4 view; // by the direction, which far from the origin a point ahead no longer tells
    buildLookAt(Vector(), getLookDirection(), getNormalDirection(), view);
    const Vector origin = view * getPosition() * -1.0F;
    std::copy_n(&origin.x, 3, &view[12]);
    return view;
}

void Camera::setMatrices(const Mat4& projection, const Mat4& view) {
    const ShaderCamera next(isFinite(projection) ? projection : getProjectionMatrix(),
                            isFinite(view) ? view : getViewMatrix());
    if (isFinite(next.getViewProjectionMatrix())) {
        matrices = next;
    }
}

} // namespace Vantrel
