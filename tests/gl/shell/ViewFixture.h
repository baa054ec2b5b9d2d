#pragma once

#include "vtl/scene/camera/Camera.h"
#include "vtl/scene/object/WorldList.h"
#include "vtl/shell/GLView.h"

#include "tests/support/FreePort.h"
#include "tests/support/ReportCapture.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace Vantrel::Tests {

/** An application with an empty world, which notes what its event handlers hear. */
class NotingView : public GLView {
public:
    using GLView::GLView;

    void loadMap() override {
        worldLst = std::make_unique<WorldList>(true, GUIRoot::made);
        actorLst = std::make_unique<WorldList>();
        auxLst = std::make_unique<WorldList>();
    }
    void updateWorld() override {
        GLView::updateWorld();
        if (frameWork) {
            frameWork();
        }
        vtlShutdownEngine();
    }
    void onMouseDown(const SDL_MouseButtonEvent& event) override {
        GLView::onMouseDown(event);
        heard += "down ";
    }
    void onMouseUp(const SDL_MouseButtonEvent& event) override {
        GLView::onMouseUp(event);
        heard += "up ";
    }
    void onMouseMove(const SDL_MouseMotionEvent& event) override {
        GLView::onMouseMove(event);
        heard += "move ";
    }
    void onMouseWheelScroll(const SDL_MouseWheelEvent& event) override {
        GLView::onMouseWheelScroll(event);
        heard += "wheel ";
    }
    void onKeyDown(const SDL_KeyboardEvent& event) override {
        GLView::onKeyDown(event);
        heard += "key ";
    }
    void onKeyUp(const SDL_KeyboardEvent& event) override {
        GLView::onKeyUp(event);
        heard += "keyup ";
    }
    void onResize(int width, int height) override {
        GLView::onResize(width, height);
        heard += "resize" + std::to_string(width) + "x" + std::to_string(height) + " ";
    }
    /** What has been heard since the last question. */
    std::string takeHeard() { return std::exchange(heard, {}); }

    /** Runs at the end of each update. */
    std::function<void()> frameWork;

private:
    std::string heard;
};

/** A view in a small window, with a context of the shader path. Its loop stops after one frame. */
class ViewFixture : public ::testing::Test {
protected:
    static constexpr int width = 64;
    static constexpr int height = 48;

    ViewFixture() {
        view = std::make_unique<NotingView>(std::vector<std::string>{
            "test", "{width=64}", "{height=48}", "{minmillisecperframe=0}", "{glContextVersion=3.3}",
            "{sharedmultimediapath=" KELDIN_SHARED_DATA "}",
            "{NetServerListenPort=" + std::to_string(freePort()) + "}",
            "{NetServerListenAddress=127.0.0.1}"});
        view->init("/dev/null");
        SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT); // the window's own
        reports.clear();
    }

    static SDL_Event buttonEvent(std::uint32_t type, int x, int y, std::uint8_t button = SDL_BUTTON_LEFT) {
        SDL_Event event{};
        event.button.type = type;
        event.button.button = button;
        event.button.x = x;
        event.button.y = y;
        return event;
    }
    static SDL_Event motionEvent(int x, int y) {
        SDL_Event event{};
        event.motion.type = SDL_MOUSEMOTION;
        event.motion.x = x;
        event.motion.y = y;
        event.motion.xrel = 1;
        return event;
    }
    static SDL_Event keyEvent(std::uint32_t type, SDL_Keycode key) {
        SDL_Event event{};
        event.key.type = type;
        event.key.keysym.sym = key;
        return event;
    }
    static SDL_Event windowEvent(std::uint8_t kind, int data1 = 0, int data2 = 0) {
        SDL_Event event{};
        event.window.type = SDL_WINDOWEVENT;
        event.window.event = kind;
        event.window.data1 = data1;
        event.window.data2 = data2;
        return event;
    }
    /** One frame of the main loop with these events waiting. */
    LoopCode runFrame(std::initializer_list<SDL_Event> events) {
        for (SDL_Event event : events) {
            SDL_PushEvent(&event);
        }
        return view->run();
    }

    ReportCapture reports;
    std::unique_ptr<NotingView> view;
};

} // namespace Vantrel::Tests
