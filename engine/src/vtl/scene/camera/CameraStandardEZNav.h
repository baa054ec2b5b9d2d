#pragma once

#include "vtl/scene/camera/Camera.h"

namespace Vantrel {

/** The camera that a person flies. */
class CameraStandardEZNav : public Camera {
public:
    using Camera::Camera;

    void update() override {}
};

} // namespace Vantrel
