#pragma once

#include "vtl/geometry/VantrelGeometryFrustum.h"
#include "vtl/gl/shader/ShaderCamera.h"
#include "vtl/scene/camera/CameraViewport.h"
#include "vtl/scene/object/WO.h"

namespace Vantrel {

class GLView;
class HandlerMouseState;

/** A world object through which the world is seen. */
class Camera : public WO {
public:
    static std::string getClassName() { return "Camera"; }

    Camera(GLView* view, HandlerMouseState* mouse);

    /** A camera has no age. */
    void updateGL() override {}

    virtual void setCameraLookDirection(const Vector& direction);
    /** Leaves the object that the camera is attached to. */
    virtual void detachCameraFromWO() {}
    /** Each frame, before the matrices are computed. */
    virtual void update() = 0;
    /** Runs once, when the camera has become the current one. */
    virtual void startCameraBehavior() = 0;
    /** Width over height. */
    virtual void setCameraAspectRatio(float ratio) { aspectRatio = ratio; }
    virtual Vector getCameraLookAtPoint() const { return getPosition() + getLookDirection(); }
    /** Computes frustum and matrices anew from where the camera is and how it sees. */
    virtual void updateCameraMatrices();

    float getCameraAspectRatio() const { return aspectRatio; }
    void setViewport(const CameraViewport& rectangle) { viewport = rectangle; }
    const CameraViewport& getViewport() const { return viewport; }
    const VantrelGeometryFrustum& getFrustum() const { return frustum; }
    const Mat4& getViewMatrix() const { return matrices.getViewMatrix(); }
    const Mat4& getProjectionMatrix() const { return matrices.getProjectionMatrix(); }
    /** Both matrices and their product. */
    const ShaderCamera& getShaderCamera() const { return matrices; }

    /** Whether this is the light's camera, which draws depths alone. */
    bool isShadowMapCamera = false;

protected:
    GLView* glView;
    HandlerMouseState* mouseHandler;

private:
    VantrelGeometryFrustum frustum;
    CameraViewport viewport;
    /** Degrees. */
    float fovy;
    float nearPlane;
    float farPlane;
    float aspectRatio;
    ShaderCamera matrices{Mat4(), Mat4()};
};

} // namespace Vantrel
