#pragma once

#include "vtl/scene/camera/Camera.h"

namespace Vantrel {

/** A camera for a view straight down, which dragging moves along the ground. */
class CameraOrthoTopDown : public Camera {
public:
    using Camera::Camera;

    void onMouseMove(const SDL_MouseMotionEvent& event) override;
    void update() override {}
};

} // namespace Vantrel
