#pragma once

#include "vtl/scene/SceneHost.h"
#include "vtl/scene/camera/HandlerMouseState.h"

#include "tests/support/HeldKey.h"
#include "tests/support/ReportCapture.h"
#include "tests/support/SceneModels.h"
#include "tests/unit/math/MathTesting.h"

#include <SDL.h>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace Vantrel {
class GLView;
}

namespace Vantrel::Tests {

/** A camera that hears of the mouse after the mouse state, and selects what it is told to. */
template <class Steered>
class SteeredCamera : public ::testing::Test, public SceneHost {
protected:
    SteeredCamera() { SceneHost::set(this); }
    ~SteeredCamera() override { SceneHost::set(nullptr); }

    Camera* getCamera() override { return &camera; }
    WorldContainer* getWorldContainer() override { return nullptr; }
    void processSelection(int x, int y, Camera* /*camera*/) override { asked.emplace_back(x, y, 0); }
    WO* getSelectedWO() override { return selected; }
    const Vector* getSelectedWorldCoord() override { return &coordinate; }

    void press(int button, int x = 0, int y = 0) {
        SDL_MouseButtonEvent event{};
        event.button = static_cast<Uint8>(button);
        event.x = x;
        event.y = y;
        mouse.onMouseDown(event);
        camera.onMouseDown(event);
    }
    void letGo(int button) {
        SDL_MouseButtonEvent event{};
        event.button = static_cast<Uint8>(button);
        mouse.onMouseUp(event);
        camera.onMouseUp(event);
    }
    void drag(int dx, int dy) {
        SDL_MouseMotionEvent event{};
        event.xrel = dx;
        event.yrel = dy;
        mouse.onMouseMove(event);
        camera.onMouseMove(event);
    }

    ReportCapture reports;
    WO* selected = nullptr;
    Vector coordinate;
    /** Pixels that were asked for. */
    std::vector<VectorT<int>> asked;
    HandlerMouseState mouse;
    /** Cameras only ask whether there is one. */
    GLView* view = reinterpret_cast<GLView*>(&mouse);
    Steered camera{view, &mouse};
};

} // namespace Vantrel::Tests
