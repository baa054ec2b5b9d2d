#include "vtl/scene/camera/CameraOrthoTopDown.h"

#include "vtl/scene/camera/HandlerMouseState.h"

namespace Vantrel {

void CameraOrthoTopDown::onMouseMove(const SDL_MouseMotionEvent& /*event*/) {
    if (hasMouse("onMouseMove") && mouseHandler->isLeftDown()) {
        moveRelative(
            Vector(static_cast<float>(mouseHandler->getDx()), -static_cast<float>(mouseHandler->getDy()), 0));
    }
}

} // namespace Vantrel
