#pragma once

#include "vtl/scene/camera/CameraViewport.h"
#include "vtl/scene/object/WO.h"

namespace Vantrel {

class GLView;
class HandlerMouseState;

/** A world object through which the world is seen. */
class Camera : public WO {
public:
    Camera(GLView* view, HandlerMouseState* mouse);

    Vector getLookDirection() const override { return lookDirection; }
    virtual void setCameraLookDirection(const Vector& direction) { lookDirection = direction.normalizeMe(); }
    /** Leaves the object that the camera is attached to. */
    virtual void detachCameraFromWO() {}
    /** Each frame, before the matrices are computed. */
    virtual void update() = 0;
    /** Runs once, when the camera has become the current one. */
    virtual void startCameraBehavior() = 0;
    /** Width over height. */
    virtual void setCameraAspectRatio(float ratio) { aspectRatio = ratio; }

    float getCameraAspectRatio() const { return aspectRatio; }
    void setViewport(const CameraViewport& rectangle) { viewport = rectangle; }
    const CameraViewport& getViewport() const { return viewport; }

protected:
    GLView* glView;
    HandlerMouseState* mouseHandler;

private:
    CameraViewport viewport;
    float aspectRatio = 1;
    Vector lookDirection = unitX;
};

} // namespace Vantrel
