#include "vtl/scene/camera/Camera.h"

#include "vtl/gl/ManagerWindowing.h"

#include <algorithm>

namespace Vantrel {

Camera::Camera(GLView* view, HandlerMouseState* mouse)
    : glView(view)
    , mouseHandler(mouse)
    , viewport{0, 0, ManagerWindowing::getWindowWidth(), ManagerWindowing::getWindowHeight()}
    , aspectRatio(static_cast<float>(viewport.width) / static_cast<float>(std::max(viewport.height, 1))) {
}

} // namespace Vantrel
