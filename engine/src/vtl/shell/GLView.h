#pragma once

#include "vtl/math/VectorT.h"
#include "vtl/scene/SceneHost.h"
#include "vtl/scene/camera/HandlerMouseState.h"
#include "vtl/scene/object/WO.h"
#include "vtl/shell/UI.h"

#include <SDL.h>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Vantrel {

class Camera;
class NetMessengerServer;
class VantrelGLRendererBase;
class WorldContainer;

/** What `run` and the event handlers answer: go on, stop, or start again. */
enum class LoopCode : int { carryOn = 1, stop = 0, restart = -1 };

/**
 * The application object: it owns the world, the camera, the renderer and the network server, brings all
 * managers up and down, and runs the main loop. An application derives from it and fills the hooks. Main
 * thread.
 */
class GLView : private SceneHost {
public:
    /** Only keeps the command line; `init` does the rest. */
    explicit GLView(std::vector<std::string> commandLine);
    GLView(const GLView&) = delete;
    GLView& operator=(const GLView&) = delete;
    virtual ~GLView();

    virtual void setFPS(std::uint32_t framesPerSecond) { fps = framesPerSecond; }
    /** The object that hears of input and that chase cameras follow; the camera is made anew for it. */
    virtual void setActor(WO* object);
    /** Turns to the first entry of the actor list, or from that one to the second. */
    virtual void cycleActor();
    /**
     * The application's scene: must create `worldLst`, `actorLst` and `auxLst` and fill the world. Runs late
     * in `init`, with window, GL state, camera and renderer ready.
     */
    virtual void loadMap() = 0;
    /** The last of the application's own set-up, after `init`. */
    virtual void onCreate() {}
    /** The main loop. Answers `stop` or `restart`. */
    virtual LoopCode run();
    /** One update of the world; an override calls this first. */
    virtual void updateWorld();

    /** The window's size has changed, in pixels. */
    virtual void onResize(int width, int height);
    virtual void resetMouseState();
    virtual void onMouseDown(const SDL_MouseButtonEvent& event);
    virtual void onMouseUp(const SDL_MouseButtonEvent& event);
    virtual void onMouseWheelScroll(const SDL_MouseWheelEvent& event);
    virtual void onMouseMove(const SDL_MouseMotionEvent& event);
    /** The engine's function keys, then the actor; an override calls this first. */
    virtual void onKeyDown(const SDL_KeyboardEvent& event);
    virtual void onKeyUp(const SDL_KeyboardEvent& event);

    /** Ends the process after the frame in progress. Any thread. */
    virtual void vtlShutdownEngine();
    /** Builds everything anew after the frame in progress. Any thread. */
    virtual void vtlResetEngine();

    /** Selects what shows at a pixel, counted from the top left, as `camera` sees it. */
    void processSelection(int x, int y, Camera* camera) override;

    virtual VantrelGLRendererBase* getRenderer() { return renderer.get(); }
    virtual void initCameraState() { camType = 0; }
    virtual void createCamera();
    /**
     * Makes the camera of a type number the current one, where the old one stood and looked. A scripted
     * motion of the old one goes on with it.
     */
    virtual void setCameraType(int type);
    /** One simulation step of every top-level object. */
    virtual void updateWorldObjects();

    /** Start-up, in its fixed order. */
    virtual void init(const std::string& configurationFile);
    /** Offers an event to the GUI; true when it was consumed. */
    virtual bool handleGUIEvent(const SDL_Event& event);
    virtual LoopCode handleEvent(SDL_Event* event);
    virtual LoopCode handleWindowEvent(SDL_Event* event);
    virtual LoopCode handleSysWMEvent(SDL_Event* event);

    Camera* getCamera() override { return cam.get(); }
    WorldContainer* getWorldContainer() override { return worldLst.get(); }
    /** Null when nothing is selected or it has died. */
    WO* getSelectedWO() override { return selectedWO.get(); }
    /** Where in the world the last selection was; null where that was nowhere. */
    const Vector* getSelectedWorldCoord() override {
        return selectedWorldCoord ? &*selectedWorldCoord : nullptr;
    }
    /** Frames counted in the last full second. */
    std::uint32_t getFPS() const { return fps; }

protected:
    /** Where the current camera is, whichever it is. */
    const std::unique_ptr<Camera>* getCameraHolder() const { return &cam; }

    /** Owns its objects: what is left in it goes in the teardown. */
    std::unique_ptr<WorldContainer> worldLst;
    std::unique_ptr<WorldContainer> actorLst;
    std::unique_ptr<WorldContainer> auxLst;

private:
    void initConfiguration(const std::string& configurationFile);
    void initServer();
    void initWindow();
    void initDrawing();
    void initWorld();

    LoopCode handleEvents();
    void renderWorld();
    LoopCode loopCodeAfterFrame() const;
    void checkModels();
    /** Lets the motions of the world that move `from` go on with `to`. */
    void handOverMotions(const Camera* from, Camera* to);
    void destroyWorld();
    static void shutdownManagers();

    WORef<WO> selectedWO;
    std::optional<Vector> selectedWorldCoord;
    std::unique_ptr<Camera> cam;
    /** Gone from the next frame on: an event that one of them is at may be what changed the camera. */
    std::vector<std::unique_ptr<Camera>> formerCameras;
    int camType = 0;
    WORef<WO> actor;
    UI ui;
    std::unique_ptr<NetMessengerServer> netServer;
    std::vector<std::string> args;
    std::uint32_t fps = 60;
    HandlerMouseState mouseHandler;
    std::unique_ptr<VantrelGLRendererBase> renderer;
};

/**
 * Runs application objects that `make` builds and initialises, one after the other for as long as they ask to
 * be started again.
 */
template <class Make>
void runUntilStopped(const std::vector<std::string>& args, Make&& make) {
    while (make(args)->run() != LoopCode::stop) {
    }
}

} // namespace Vantrel
