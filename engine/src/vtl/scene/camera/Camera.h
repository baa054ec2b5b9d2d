#pragma once

#include "vtl/geometry/VantrelGeometryFrustum.h"
#include "vtl/gl/shader/ShaderCamera.h"
#include "vtl/scene/camera/CameraViewport.h"
#include "vtl/scene/object/WO.h"

#include <cstdint>
#include <ostream>

namespace Vantrel {

class GLView;
class HandlerMouseState;

/**
 * A world object through which the world is seen. It stands and looks as its model does, which is a box that
 * only shows when the camera is made visible. What isn't finite, or has no direction where one is asked for,
 * changes nothing, and matrices that would come out that way stay what they were. Main thread.
 */
class Camera : public WO {
public:
    enum class PROJ_MATRIX_PROJ_TYPE : std::uint8_t { pmptPERSPECTIVE = 0, pmptORTHOGRAPHIC = 1 };

    static std::string getClassName() { return "Camera"; }

    /** Neither is owned; without them the camera hears of no mouse and selects nothing. */
    Camera(GLView* view, HandlerMouseState* mouse);

    using WO::setPosition;
    void setPosition(const Vector& place) override;
    void setPositionOfThisOnly(const Vector& place) override;
    void moveRelative(const Vector& amount) override;
    void moveRelativeThisOnly(const Vector& amount) override;
    /** With Left Ctrl selects what is under the mouse. */
    void onMouseDown(const SDL_MouseButtonEvent& event) override;
    void onMouseUp(const SDL_MouseButtonEvent& event) override;
    void onMouseWheelScroll(const SDL_MouseWheelEvent& event) override;
    /** Dragging turns with the left button and steps with the right one, once for every five pixels. */
    void onMouseMove(const SDL_MouseMotionEvent& event) override;
    /** A camera has no age. */
    void updateGL() override {}

    /** Metres; without a distance one step, as of the next three. */
    virtual void moveInLookDirection(float distance);
    virtual void moveInLookDirection() { moveInLookDirection(stepLength()); }
    virtual void moveOppositeLookDirection(float distance) { moveInLookDirection(-distance); }
    virtual void moveOppositeLookDirection() { moveOppositeLookDirection(stepLength()); }
    virtual void moveLeft();
    virtual void moveRight();
    /** Turns by a mouse motion in pixels: to the right and downwards. */
    virtual void changeLookDirection(int dx, int dy);
    /**
     * Ties the camera to a joint at `point`, of the world, on `object`, which becomes the parent without
     * taking the camera as a child: when it dies, the camera is free and stays where it is. An object below
     * the camera is refused. Says whether the camera is tied.
     */
    virtual bool attachCameraToWO(WO* object, const Vector& point);
    /** Leaves the object that the camera is attached to, and the camera where it is. */
    virtual void detachCameraFromWO();
    /** Scale of the distance from the joint; 0 without one. */
    virtual float getActorDistance() const;
    virtual void setActorDistance(float scale);
    /** Each frame, before the matrices are computed. */
    virtual void update() = 0;
    /** Metres a step. */
    virtual void setCameraVelocity(float metres);
    virtual float getCameraVelocity() const { return camVelocity; }
    /** The next four are refused while the camera is attached. */
    virtual void setCameraLookAtPoint(const Vector& point);
    virtual void setCameraLookDirection(const Vector& direction);
    /** Keeps the look direction as near as it can. */
    virtual void setCameraNormalPoint(const Vector& point);
    virtual void setCameraNormalDirection(const Vector& direction);
    /** Pixels for a radian of turn; not zero. */
    virtual void setMouseSensitivity(float pixels);
    /** Runs when the camera has become the current one, or has something else to watch. */
    virtual void startCameraBehavior();
    virtual void setActorToWatch(WO* actor);
    /** Null when it has died. */
    virtual WO* getActorToWatch() const { return actorToWatch.get(); }
    /** Between 0 and 180, both ways. */
    virtual void setCameraFOVy(float degrees);
    virtual void setCameraHorzFOV(float degrees);
    /** Width over height, above zero. */
    virtual void setCameraAspectRatio(float ratio);
    virtual void setCameraNearClippingPlaneDistance(float distance);
    virtual void setCameraFarClippingPlaneDistance(float distance);
    /** What the mouse turns the camera about to the sides; the camera is levelled to it. */
    virtual void setHorizontalRotationAxis(const Vector& axis);
    /** Unit vector. */
    virtual Vector getHorizontalRotationAxis() const { return horizontalRotationAxis; }
    /** A point one metre ahead. */
    virtual Vector getCameraLookAtPoint() const { return getPosition() + getLookDirection(); }
    /** Computes frustum and matrices anew from where the camera is and how it sees. */
    virtual void updateCameraMatrices();

    float getCameraFOVy() const { return fovy; }
    float getCameraHorzFOV() const;
    float getCameraAspectRatio() const { return aspectRatio; }
    float getCameraNearClippingPlaneDistance() const { return nearPlane; }
    float getCameraFarClippingPlaneDistance() const { return farPlane; }
    const VantrelGeometryFrustum& getFrustum() const { return frustum; }
    const Mat4& getViewMatrix() const { return matrices.getViewMatrix(); }
    /** Until the next update, as the one after it. */
    void setViewMatrix(const float* elements16);
    void setProjectionMatrix(const Mat4& projection) { setMatrices(projection, getViewMatrix()); }
    const Mat4& getProjectionMatrix() const { return matrices.getProjectionMatrix(); }
    const Mat4& getGUIProjectionMatrix() const { return guiProjectionMatrix; }
    /** Both matrices and their product. */
    const ShaderCamera& getShaderCamera() const { return matrices; }
    void setViewport(const CameraViewport& rectangle) { viewport = rectangle; }
    const CameraViewport& getViewport() const { return viewport; }
    /** The box that is seen, along the view's axes. */
    void setOrthographicPlanes(float left, float right, float bottom, float top, float near, float far);
    /** The same box about the line of sight; near and far stay. */
    void setOrthographicExtent(float width, float height);
    /** Depth, width and height of that box. */
    Vector getOrthographicExtent() const;
    /** An orthographic projection is the one of the GUI until the next update. */
    void setProjectionType(PROJ_MATRIX_PROJ_TYPE type);
    PROJ_MATRIX_PROJ_TYPE getProjectionType() const { return camProjectionType; }
    /** Always that of a perspective. */
    void updateFrustum();
    /** By the projection type. */
    void updateProjectionMatrix();
    /** Whatever the projection type. */
    void updateProjectionMatrixUsingPerspectiveProjection();
    void updateProjectionMatrixUsingOrthographicProjection();
    void updateViewMatrix();

    /** Whether this is the light's camera, which draws depths alone. */
    bool isShadowMapCamera = false;

protected:
    /** Metres. */
    virtual float stepLength() const { return camVelocity; }
    /** False, with a warning that names the operation, when nobody tells of the mouse. */
    bool hasMouse(const char* operation) const;
    /** The same when there is no view to select in. */
    bool hasMouseAndView(const char* operation) const;
    /** Selects what is under the press of the mouse; null for nothing. */
    WO* selectAtPress();
    bool isAttachedToJoint() const { return getIsLockedWRTparent() && getJoint() != nullptr; }
    /** Looks there with the normal as near to `up` as it can be. */
    void lookAlong(const Vector& look, const Vector& up);

    GLView* glView;
    HandlerMouseState* mouseHandler;
    /** Scale of the orbit radius. */
    float actorDistance = 0.7F;

private:
    bool isRefusedWhileAttached(const char* operation) const;
    void lookTowards(const Vector& direction);
    void stepByDrag(int pixels);
    Mat4 projectionOfType() const;
    Mat4 perspective() const;
    Mat4 orthographic() const;
    Mat4 viewFromPose() const;
    void setMatrices(const Mat4& projection, const Mat4& view);

    VantrelGeometryFrustum frustum;
    CameraViewport viewport;
    PROJ_MATRIX_PROJ_TYPE camProjectionType = PROJ_MATRIX_PROJ_TYPE::pmptPERSPECTIVE;
    Vector horizontalRotationAxis = unitZ;
    float camVelocity = 0.35F;
    float mouseSensitivity = 285.0F;
    WORef<WO> actorToWatch;
    /** Degrees. */
    float fovy;
    float nearPlane;
    float farPlane;
    float aspectRatio = 1.0F;
    ShaderCamera matrices{Mat4(), Mat4()};
    Mat4 guiProjectionMatrix;
    float orthoLeft = -10.0F;
    float orthoRight = 10.0F;
    float orthoTop = 10.0F;
    float orthoBottom = -10.0F;
};

std::ostream& operator<<(std::ostream& out, Camera::PROJ_MATRIX_PROJ_TYPE type);

} // namespace Vantrel
