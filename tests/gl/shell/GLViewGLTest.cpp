#include "tests/gl/shell/ViewFixture.h"
#include "tests/support/HeldKey.h"
#include "tests/support/SceneModels.h"

#include "vtl/gl/DebugView.h"
#include "vtl/gl/capture/ManagerFrameCapture.h"
#include "vtl/scene/motion/VantrelMotionDataCameraParabolicMotion1PhaseChangeOrientationViaSLERP.h"
#include "vtl/scene/motion/WOOperatorMotionSpecifierTimeConstrained.h"
#include "vtl/scene/shape/WOPrimitiveShape.h"

namespace Vantrel {
namespace {

using GLViewGLTest = Tests::ViewFixture;

constexpr const char* resized = "SDL_WINDOWEVENT_RESIZED:...\n";

TEST_F(GLViewGLTest, SortsEventsByTheirType) {
    struct Row {
        std::uint32_t type;
        LoopCode code;
        const char* heard;
        const char* reported;
    };
    for (const Row& row : {
             Row{0, LoopCode::restart, "", ""},
             Row{SDL_QUIT, LoopCode::stop, "", "SDL_QUIT event received...\n"},
             Row{SDL_SYSWMEVENT, LoopCode::carryOn, "", "System OS Specific SDL Event:\n"},
             Row{SDL_KEYUP, LoopCode::carryOn, "keyup ", ""},
             Row{SDL_TEXTEDITING, LoopCode::carryOn, "", ""},
             Row{SDL_TEXTINPUT, LoopCode::carryOn, "", ""},
             Row{SDL_CLIPBOARDUPDATE, LoopCode::carryOn, "", "SDL Clipboard Updated...\n"},
             Row{SDL_JOYAXISMOTION, LoopCode::carryOn, "",
                 "GLView::handleEvent(): Unknown SDL_Event sdlEvent.type='1536'\n"},
         }) {
        SDL_Event event{};
        event.type = row.type;
        EXPECT_EQ(view->handleEvent(&event), row.code) << row.type;
        EXPECT_EQ(view->takeHeard(), row.heard) << row.type;
        EXPECT_EQ(reports.text(), row.reported) << row.type;
        reports.clear();
    }
}

TEST_F(GLViewGLTest, TakesTheWindowsEvents) {
    SDL_Event event = windowEvent(SDL_WINDOWEVENT_ENTER);
    EXPECT_EQ(view->handleEvent(&event), LoopCode::carryOn);
    event = windowEvent(99);
    EXPECT_EQ(view->handleEvent(&event), LoopCode::carryOn);
    event = windowEvent(SDL_WINDOWEVENT_CLOSE);
    EXPECT_EQ(view->handleEvent(&event), LoopCode::stop);
    EXPECT_EQ(reports.text(),
              "SDL_WINDOWEVENT_ENTER... (Window has Mouse Focus)\n"
              "GLView::handleWindowEvent(): Unknown SDL_WindowEvent sdlWindowEvent.type='512'\n"
              "SDL_WINDOWEVENT_CLOSE...\n");
    runFrame({windowEvent(SDL_WINDOWEVENT_RESIZED, 80, 40)});
    EXPECT_EQ(view->takeHeard(), "resize80x40 ");
    EXPECT_TRUE(reports.contains(resized));
    EXPECT_EQ(view->getCamera()->getViewport().width, 80);
    EXPECT_EQ(view->getCamera()->getCameraAspectRatio(), 2);
}

TEST_F(GLViewGLTest, TheClickThatBringsOneBackDoesNothingElse) {
    const SDL_Event focus = windowEvent(SDL_WINDOWEVENT_FOCUS_GAINED);
    const SDL_Event enter = windowEvent(SDL_WINDOWEVENT_ENTER);
    const SDL_Event leave = windowEvent(SDL_WINDOWEVENT_LEAVE);
    const SDL_Event down = buttonEvent(SDL_MOUSEBUTTONDOWN, 5, 5);
    const SDL_Event up = buttonEvent(SDL_MOUSEBUTTONUP, 5, 5);
    const SDL_Event motion = motionEvent(5, 5);
    const SDL_Event key = keyEvent(SDL_KEYDOWN, SDLK_F11);
    struct Row {
        std::initializer_list<SDL_Event> events;
        const char* heard;
    };
    for (const Row& row : {
             Row{{focus, down, up}, "up "},
             Row{{enter, motion, down, up, down, up}, "move up down up "},
             Row{{enter, leave, down, up}, "down up "},
             Row{{focus, key, down, up}, "key down up "},
         }) {
        runFrame(row.events);
        EXPECT_EQ(view->takeHeard(), row.heard);
    }
    runFrame({focus});
    runFrame({down, up});
    EXPECT_EQ(view->takeHeard(), "down up ") << "in another frame it is a click";
}

TEST_F(GLViewGLTest, PassesEventsToTheMouseTheCameraAndTheActor) {
    class Actor : public WO {
    public:
        void onKeyDown(const SDL_KeyboardEvent& event) override { keys.push_back(event.keysym.sym); }
        void onMouseMove(const SDL_MouseMotionEvent& event) override { moved += event.xrel; }
        std::vector<SDL_Keycode> keys;
        int moved = 0;
    };
    Actor actor;
    view->setActor(&actor);
    const Vector before = view->getCamera()->getLookDirection();
    runFrame({buttonEvent(SDL_MOUSEBUTTONDOWN, 5, 5), motionEvent(6, 5), buttonEvent(SDL_MOUSEBUTTONUP, 6, 5),
              keyEvent(SDL_KEYDOWN, SDLK_F11), keyEvent(SDL_KEYDOWN, SDLK_a)});
    EXPECT_NE(view->getCamera()->getLookDirection(), before) << "the camera finds the mouse up to date";
    EXPECT_EQ(actor.moved, 1);
    EXPECT_EQ(actor.keys, (std::vector<SDL_Keycode>{SDLK_F11, SDLK_a}));
}

TEST_F(GLViewGLTest, HasItsFunctionKeys) {
    WO* const object = Tests::objectAt(Vector()).release();
    view->getWorldContainer()->push_back(object); // the world's from here on
    view->getCamera()->setPosition(1, 2, 3);
    struct Row {
        SDL_Keycode key;
        const char* reported;
    };
    for (const Row& row : {
             Row{SDLK_F1,
                 "Cam Pos: (1.000000, 2.000000, 3.000000) Look At Dir: (1.000000, 0.000000, 0.000000)\n"},
             Row{SDLK_F2, "Toggled Bounding Boxes for all Models...\n"},
             Row{SDLK_F3, "Toggled Bounding Boxes for all ModelMeshes...\n"},
             Row{SDLK_F4, "Time Spent Rendering Shadows (total, per loop):\t"},
             Row{SDLK_F5,
                 "VANTREL Lib build without preprocessor '#define VTL_CONFIG_USE_TNL'. No TNL Networking.\n"},
             Row{SDLK_F7, "DefaultTexture.bmp"},
         }) {
        reports.clear();
        runFrame({keyEvent(SDL_KEYDOWN, row.key)});
        EXPECT_TRUE(reports.contains(row.reported)) << reports.text();
    }
    EXPECT_TRUE(object->getModel()->boundingBoxVisible);
    runFrame({keyEvent(SDL_KEYDOWN, SDLK_F6)});
    EXPECT_TRUE(debugViewEnabled);
    SDL_Event wheel{};
    wheel.wheel.type = SDL_MOUSEWHEEL;
    wheel.wheel.y = 3;
    runFrame({wheel});
    EXPECT_TRUE(reports.contains("Cam velocity multiplier 2, wheelScroll count 2"));
    SDL_Event heldOn = keyEvent(SDL_KEYDOWN, SDLK_F12);
    heldOn.key.repeat = 1;
    for (const SDL_Event& event : {keyEvent(SDL_KEYDOWN, SDLK_F12), heldOn, keyEvent(SDL_KEYUP, SDLK_F12)}) {
        runFrame({event});
        EXPECT_EQ(ManagerFrameCapture::getFrameCount(), 1U) << "a press keeps one frame";
    }
    view.reset();
    EXPECT_FALSE(debugViewEnabled) << "nothing outlives the view";
}

TEST_F(GLViewGLTest, SelectsUnderThePressWithTheKeyHeldAndOnlyThen) {
    /** Changes the camera whose event it is. */
    class Switch : public WOPrimitiveShape {
    public:
        void onSelected(const SDL_MouseButtonEvent& event) override {
            WO::onSelected(event);
            for (int i = 0; i < 3; ++i) {
                view->setCameraType(11);
            }
        }
        GLView* view = nullptr;
    };
    auto* const cube = new Switch;
    cube->onCreate(PRIMITIVE_SHAPE_TYPE::psCUBE, {2});
    cube->setLabel("cube");
    cube->view = view.get();
    view->getWorldContainer()->push_back(cube);
    Camera* const first = view->getCamera();
    first->setPosition(-10, 0, 0);
    first->setCameraLookDirection(unitX);
    const SDL_Event press = buttonEvent(SDL_MOUSEBUTTONDOWN, width / 2, height / 2);
    const SDL_Event release = buttonEvent(SDL_MOUSEBUTTONUP, width / 2, height / 2);
    runFrame({press, release});
    EXPECT_EQ(view->getSelectedWO(), nullptr);
    const Tests::HeldKey ctrl(SDL_SCANCODE_LCTRL);
    runFrame({press, release});
    EXPECT_EQ(view->getSelectedWO(), cube);
    EXPECT_NE(view->getCamera(), first);
    EXPECT_EQ(view->getCamera()->getPosition(), Vector(-10, 0, 0));
    EXPECT_TRUE(reports.contains("Mouse Down at pixel: (32,24), World coord: "));
    EXPECT_TRUE(reports.contains("Selected WO " + std::to_string(cube->getID()) + ", 'cube'...\n"));
    reports.clear();
    runFrame({buttonEvent(SDL_MOUSEBUTTONDOWN, 1, 1)});
    EXPECT_EQ(view->getSelectedWO(), nullptr);
    EXPECT_FALSE(reports.contains("Selected WO"));
}

TEST_F(GLViewGLTest, AScriptedMotionGoesOnWithTheNextCamera) {
    using Turn = VantrelMotionDataCameraParabolicMotion1PhaseChangeOrientationViaSLERP;
    const Vector place(1, 2, 3);
    auto* const motion =
        WOOperatorMotionSpecifierTimeConstrained::New(
            view->getCamera(), std::make_unique<Turn>(VantrelQuaternion(), VantrelQuaternion(), place),
            1'000'000)
            .release();
    view->getWorldContainer()->push_back(motion); // the world's from here on
    motion->startMotion();
    runFrame({});
    EXPECT_EQ(view->getCamera()->getPosition(), place);
    view->setActor(nullptr);
    view->getCamera()->setPosition(9, 9, 9);
    runFrame({});
    EXPECT_EQ(view->getCamera()->getPosition(), place);
    EXPECT_TRUE(motion->isMotionRunning());
}

} // namespace
} // namespace Vantrel
