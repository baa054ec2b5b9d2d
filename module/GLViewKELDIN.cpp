#include "module/GLViewKELDIN.h"

#include "module/TestWorld.h"
#include "module/WorldContainerKELDIN.h"
#include "vtl/base/ManagerEnvironmentConfiguration.h"
#include "vtl/base/Report.h"
#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/gl/ManagerWindowing.h"
#include "vtl/scene/camera/Camera.h"
#include "vtl/shell/WindowEventText.h"

namespace Vantrel {
namespace {

/** Lets every event pass and reports those of the window. */
int SDLCALL reportWindowEvent(void* /*unused*/, SDL_Event* event) {
    const WindowEventText* const text =
        event->type == SDL_WINDOWEVENT ? findWindowEventText(event->window.event) : nullptr;
    if (text == nullptr || text->kind == SDL_WINDOWEVENT_NONE) {
        return 1;
    }
    Report report;
    report << text->name << "...";
    if (text->kind == SDL_WINDOWEVENT_MAXIMIZED) {
        report << " Window ID" << event->window.windowID << "...";
    }
    report << "\n";
    return 1;
}

} // namespace

std::unique_ptr<GLView> GLViewKELDIN::New(const std::vector<std::string>& args) {
    const std::string named = ManagerEnvironmentConfiguration::getCommandLineValue(args, "configurationfile");
    auto view = std::make_unique<GLViewKELDIN>(args);
    view->init(named.empty() ? "vantrel.conf" : named);
    view->onCreate();
    return view;
}

void GLViewKELDIN::loadMap() {
    worldLst = std::make_unique<WorldContainerKELDIN>();
    actorLst = std::make_unique<WorldList>();
    auxLst = std::make_unique<WorldList>();
    constexpr float nearest = 2.0F;
    constexpr float farthest = 100000.0F;
    ManagerOpenGLState::setFarPlane(farthest);
    ManagerOpenGLState::setNearPlane(nearest);
    ManagerOpenGLState::setFrustumCullingEnabled(false);
    ManagerOpenGLState::setAxesVisible(false);
    getCamera()->setPosition(Vector(15, 15, 10));
    getCamera()->setCameraNearClippingPlaneDistance(nearest);
    getCamera()->setCameraFarClippingPlaneDistance(farthest);
    addTestWorld(*worldLst, getCameraHolder());
}

void GLViewKELDIN::onCreate() {
    constexpr int flyingCamera = 11;
    Report() << "Entering onCreate\n";
    ManagerWindowing::setWindowTitle("Keldin Visualizer " __DATE__ ", " __TIME__ " EST");
    Report() << "Changing camera mode.\n";
    setCameraType(flyingCamera);
    getCamera()->setPosition(Vector(150, 125, 125));
    getCamera()->setCameraLookDirection(Vector(-0.85F, -0.35F, -0.4F));
    Report() << "Leaving onCreate\nGonna init here...\n";
    SDL_SetEventFilter(reportWindowEvent, nullptr);
}

} // namespace Vantrel
