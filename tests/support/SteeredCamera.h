#pragma once

#include "vtl/scene/camera/HandlerMouseState.h"

#include "tests/support/HeldKey.h"
#include "tests/support/MouseEvents.h"
#include "tests/support/ReportCapture.h"
#include "tests/support/SceneModels.h"

#include <gtest/gtest.h>

namespace Vantrel {
class GLView;
}

namespace Vantrel::Tests {

/** A camera that hears of the mouse as it does in the application: after the mouse state. */
template <class Steered>
class SteeredCamera : public ::testing::Test {
protected:
    void press(int button, int x = 0, int y = 0) {
        const SDL_MouseButtonEvent event = buttonEvent(button, x, y);
        mouse.onMouseDown(event);
        camera.onMouseDown(event);
    }
    void letGo(int button) {
        const SDL_MouseButtonEvent event = buttonEvent(button);
        mouse.onMouseUp(event);
        camera.onMouseUp(event);
    }
    void drag(int dx, int dy) {
        const SDL_MouseMotionEvent event = motionEvent(dx, dy);
        mouse.onMouseMove(event);
        camera.onMouseMove(event);
    }

    ReportCapture reports;
    HandlerMouseState mouse;
    /** Cameras only ask whether there is one. */
    GLView* view = reinterpret_cast<GLView*>(&mouse);
    Steered camera{view, &mouse};
};

} // namespace Vantrel::Tests
