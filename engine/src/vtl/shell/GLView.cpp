#include "vtl/shell/GLView.h"

#include "vtl/base/ManagerEnvironmentConfiguration.h"
#include "vtl/base/ManagerRandomNumber.h"
#include "vtl/base/ManagerSDLTime.h"
#include "vtl/base/Report.h"
#include "vtl/base/StopSignals.h"
#include "vtl/gl/DebugView.h"
#include "vtl/gl/GLError.h"
#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/gl/ManagerWindowing.h"
#include "vtl/gl/capture/ManagerFrameCapture.h"
#include "vtl/gl/shader/ManagerShader.h"
#include "vtl/gl/texture/ManagerTexture.h"
#include "vtl/net/ManagerSerializableNetMsgMap.h"
#include "vtl/net/NetMessengerServer.h"
#include "vtl/render/VantrelGLRenderer.h"
#include "vtl/scene/camera/CameraStandardEZNav.h"
#include "vtl/scene/gui/WOGUIRoot.h"
#include "vtl/scene/light/ManagerLight.h"
#include "vtl/scene/model/ManagerModelMultiplicity.h"
#include "vtl/scene/motion/WOOperatorMotionSpecifier.h"
#include "vtl/scene/object/WO.h"
#include "vtl/scene/object/WorldContainer.h"
#include "vtl/shell/FrameRate.h"
#include "vtl/shell/GeospatialDrivers.h"
#include "vtl/shell/ManagerDeviceInput.h"
#include "vtl/shell/ManagerGLView.h"
#include "vtl/shell/StopRequests.h"
#include "vtl/shell/WindowEventText.h"

#include <utility>

namespace Vantrel {
namespace {

using Configuration = ManagerEnvironmentConfiguration;

/** One line of the start-up, which a person sees at once, however long the next step takes. */
void reportStep(const char* line) {
    Report() << line << "\n";
    Reports::flush();
}

void printBanner() {
    Report() << "\nEngine Build: " << __DATE__ << " at " << __TIME__ << "\n\n";
    Reports::flush();
}

std::unique_ptr<Camera> makeCamera(int type, GLView* view, HandlerMouseState* mouse) {
    constexpr int standardEZNav = 11;
    if (type != standardEZNav) {
        Report() << "Camera Is In Standard Look.\n";
    }
    return std::make_unique<CameraStandardEZNav>(view, mouse);
}

void reportWindowEvent(const SDL_WindowEvent& event) {
    if (const WindowEventText* const text = findWindowEventText(event.event)) {
        Report() << text->name << text->ending;
        return;
    }
    Report() << "GLView::handleWindowEvent(): Unknown SDL_WindowEvent sdlWindowEvent.type='" << event.type
             << "'\n";
}

/**
 * Swallows the click that brings a person back to the window: one that comes in the same batch of events as
 * the window's gain of focus or of the mouse, with nothing but motion between them.
 */
class ClickGuard {
public:
    /** True when `event` is such a click. */
    bool swallows(const SDL_Event& event) {
        if (event.type == SDL_MOUSEBUTTONDOWN && guarding) {
            guarding = false;
            return true;
        }
        if (event.type == SDL_WINDOWEVENT) {
            guarding = event.window.event == SDL_WINDOWEVENT_FOCUS_GAINED ||
                       event.window.event == SDL_WINDOWEVENT_ENTER;
        } else if (event.type != SDL_MOUSEMOTION) {
            guarding = false;
        }
        return false;
    }

private:
    bool guarding = false;
};

} // namespace

GLView::GLView(std::vector<std::string> commandLine) : args(std::move(commandLine)) {
}

GLView::~GLView() {
    ManagerWindowing::drawLoadingScreen();
    renderer.reset();
    cam.reset();
    formerCameras.clear();
    destroyWorld();
    actorLst.reset();
    auxLst.reset();
    selectedWorldCoord.reset();
    netServer.reset();
    shutdownManagers();
    Reports::flush();
}

void GLView::setActor(WO* object) {
    actor = object;
    setCameraType(camType);
}

void GLView::cycleActor() {
    if (actorLst == nullptr || actorLst->size() == 0) {
        return;
    }
    const std::size_t next = actor.get() == actorLst->at(0) ? 1 % actorLst->size() : 0;
    setActor(actorLst->at(next));
}

void GLView::setCameraType(int type) {
    camType = type;
    std::unique_ptr<Camera> next = makeCamera(type, this, &mouseHandler);
    next->setPosition(cam->getPosition());
    next->setCameraLookDirection(cam->getLookDirection());
    cam->detachCameraFromWO();
    handOverMotions(cam.get(), next.get());
    formerCameras.push_back(std::exchange(cam, std::move(next)));
    cam->startCameraBehavior();
}

void GLView::handOverMotions(const Camera* from, Camera* to) {
    for (std::size_t i = 0; worldLst != nullptr && i < worldLst->size(); ++i) {
        auto* const motion = dynamic_cast<WOOperatorMotionSpecifier*>(worldLst->at(i));
        if (motion != nullptr && motion->getTargetWO() == from) {
            motion->setTargetWO(to);
        }
    }
}

void GLView::createCamera() {
    cam = std::make_unique<CameraStandardEZNav>(this, &mouseHandler);
}

void GLView::processSelection(int x, int y, Camera* camera) {
    selectedWO = nullptr;
    selectedWorldCoord.reset();
    if (!ManagerWindowing::isWindowExisting()) {
        return;
    }
    WO* object = nullptr;
    renderer->updateSelection(camera, worldLst.get(), object, selectedWorldCoord, x, y);
    selectedWO = object;
    if (selectedWorldCoord) {
        Report() << "Mouse Down at pixel: (" << x << "," << y
                 << "), World coord: " << selectedWorldCoord->toString() << "...\n";
    }
    if (object != nullptr) {
        Report() << "Selected WO " << object->getID() << ", '" << object->getLabel() << "'...\n";
    }
}

void GLView::vtlShutdownEngine() {
    stopRequests().requestShutdown();
}

void GLView::vtlResetEngine() {
    stopRequests().requestReset();
}

void GLView::init(const std::string& configurationFile) {
    printBanner();
    stopRequests().clear();
    initConfiguration(configurationFile);
    initServer();
    ManagerGLView::init(this);
    SceneHost::set(this);
    initWindow();
    initDrawing();
    initWorld();
    reportStep("Successfully returning from GLView::init()...");
}

void GLView::initConfiguration(const std::string& configurationFile) {
    Configuration::init();
    Configuration::populateFromFile(configurationFile, {"../"});
    Configuration::populateFromCommandLine(args);
    Reports::flush();
}

void GLView::initServer() {
    ManagerSerializableNetMsgMap::init();
    netServer = std::make_unique<NetMessengerServer>();
    netServer->start();
    reportStep("Initialized NetMessageServer...");
}

void GLView::initWindow() {
    constexpr std::int32_t afterWindowing = 212123;
    constexpr std::int32_t afterState = 212124;
    constexpr std::int32_t afterShader = 212125;
    constexpr std::int32_t afterLoadingScreen = 212126;
    ManagerWindowing::init();
    reportStep("Initialized ManagerWindowing...");
    checkGLError(afterWindowing);
    ManagerRandomNumber::init();
    ManagerOpenGLState::init();
    reportStep("Initialized ManagerOpenGLState...");
    checkGLError(afterState);
    ManagerShader::init();
    reportStep("Initialized ManagerShader...");
    checkGLError(afterShader);
    ManagerWindowing::drawLoadingScreen();
    checkGLError(afterLoadingScreen);
    reportStep("Finished Drawing ManagerWindows::drawLoadingScreen()...");
}

void GLView::initDrawing() {
    constexpr std::int32_t afterRenderer = 212127;
    constexpr std::int32_t afterBuffers = 212128;
    constexpr std::int32_t afterTexture = 212129;
    ManagerLight::init();
    reportStep("Initialized ManagerLight...");
    ManagerFrameCapture::init();
    reportStep("Initialized ManagerFrameCapture...");
    ManagerDeviceInput::init();
    reportStep("Initialized ManagerDeviceInput...");
    initCameraState();
    createCamera();
    renderer = VantrelGLRenderer::New();
    checkGLError(afterRenderer);
    ManagerModelMultiplicity::init();
    checkGLError(afterBuffers);
    ManagerTexture::init();
    checkGLError(afterTexture);
    reportStep("Initialized ManagerTexture:...");
}

void GLView::initWorld() {
    constexpr std::int32_t afterWorld = 212130;
    reportStep("Now invoking module's loadMap()...");
    loadMap();
    reportStep("Returned from module's loadMap()...");
    checkModels();
    reportStep("All models in worldLst are non nullptr...");
    reportStep("Initialized ODE Physics Engine Instance...");
    registerGeospatialDrivers();
    ManagerSDLTime::init();
    reportStep("Initialized ManagerSDLTime...");
    reportStep("Completed WO initCallbacks...");
    checkGLError(afterWorld);
}

LoopCode GLView::run() {
    FrameRate frameRate(Configuration::getMinMillisecPerFrame());
    const bool showFPS = Configuration::isNotZeroText("showfps");
    ManagerSDLTime::startRun();
    for (;;) {
        frameRate.startFrame();
        if (const LoopCode code = handleEvents(); code != LoopCode::carryOn) {
            return code;
        }
        ManagerSDLTime::startStopwatch(Stopwatch::mainLoop);
        updateWorld();
        ManagerSDLTime::totals().updateWorldMs += ManagerSDLTime::readStopwatch(Stopwatch::mainLoop);
        renderWorld();
        ManagerSDLTime::countLoop();
        if (frameRate.endFrame()) {
            setFPS(frameRate.framesInSecond());
            if (showFPS) {
                Report() << "Frames Per Second: " << frameRate.framesInSecond()
                         << " Main Loop Time: " << frameRate.lastFrameMs() << "\n";
            }
        }
        Reports::flush();
        frameRate.pace();
        if (const LoopCode code = loopCodeAfterFrame(); code != LoopCode::carryOn) {
            return code;
        }
    }
}

LoopCode GLView::handleEvents() {
    ManagerSDLTime::startStopwatch(Stopwatch::mainLoop);
    formerCameras.clear();
    LoopCode code = LoopCode::carryOn;
    SDL_Event event{};
    if (StopSignals::take()) {
        event.type = SDL_QUIT;
        code = handleEvent(&event);
    }
    ClickGuard clickGuard;
    while (code == LoopCode::carryOn && SDL_PollEvent(&event) != 0) {
        if (clickGuard.swallows(event)) {
            mouseHandler.reset();
        } else if (!handleGUIEvent(event)) {
            code = handleEvent(&event);
        }
    }
    ManagerSDLTime::totals().eventsMs += ManagerSDLTime::readStopwatch(Stopwatch::mainLoop);
    return code;
}

void GLView::renderWorld() {
    ManagerSDLTime::startStopwatch(Stopwatch::mainLoop);
    if (ManagerWindowing::isWindowExisting()) {
        renderer->render(cam.get(), worldLst.get());
    }
    ManagerSDLTime::totals().renderLoopMs += ManagerSDLTime::readStopwatch(Stopwatch::mainLoop);
}

LoopCode GLView::loopCodeAfterFrame() const {
    if (stopRequests().resetRequested) {
        return LoopCode::restart;
    }
    return stopRequests().shutdownRequested ? LoopCode::stop : LoopCode::carryOn;
}

void GLView::updateWorld() {
    ManagerSDLTime::stepFrameClock();
    updateWorldObjects();
    worldLst->forEachTimed(Stopwatch::objectOnUpdate, &ObjectTimes::onUpdateMs,
                           [](WO& object) { object.onUpdate(); });
    if (WOGUIRoot* const root = worldLst->getRootGUI()) {
        root->onUpdate();
    }
    if (netServer != nullptr) {
        netServer->update();
    }
    ManagerTexture::update();
}

void GLView::updateWorldObjects() {
    ManagerSDLTime::stepSimClock();
    worldLst->forEachTimed(Stopwatch::object, &ObjectTimes::glUpdateMs,
                           [](WO& object) { object.updateGL(); });
}

void GLView::checkModels() {
    for (std::size_t i = 0; i < worldLst->size(); ++i) {
        worldLst->at(i)->checkModelNotNull();
    }
}

void GLView::destroyWorld() {
    if (worldLst == nullptr) {
        return;
    }
    worldLst->destroyAll();
    worldLst.reset();
}

void GLView::shutdownManagers() {
    SceneHost::set(nullptr);
    ManagerGLView::shutdown();
    ManagerModelMultiplicity::shutdown();
    ManagerLight::shutdown();
    ManagerTexture::shutdown();
    ManagerSerializableNetMsgMap::shutdown();
    ManagerDeviceInput::shutdown();
    ManagerShader::shutdown();
    ManagerFrameCapture::shutdown();
    ManagerWindowing::shutdown();
    ManagerOpenGLState::shutdown();
    Configuration::shutdown();
}

void GLView::onResize(int width, int height) {
    ManagerWindowing::resize(width, height);
    Report() << "Resized window to " << width << " x " << height << "\n";
    cam->setCameraAspectRatio(static_cast<float>(width) / static_cast<float>(height));
    Report() << "Resize viewporT\n";
    cam->setViewport({0, 0, width, height});
    Report() << "Resize GUIRoot\n";
    if (WOGUIRoot* const root = worldLst->getRootGUI()) {
        root->onResize(width, height);
    }
    Report() << "Exiting onResize\n";
}

void GLView::resetMouseState() {
    Report() << "Resetting Mouse State\n";
    mouseHandler.reset();
}

void GLView::onMouseDown(const SDL_MouseButtonEvent& event) {
    mouseHandler.onMouseDown(event);
    cam->onMouseDown(event);
    if (actor) {
        actor->onMouseDown(event);
    }
}

void GLView::onMouseUp(const SDL_MouseButtonEvent& event) {
    mouseHandler.onMouseUp(event);
    cam->onMouseUp(event);
    if (actor) {
        actor->onMouseUp(event);
    }
}

void GLView::onMouseWheelScroll(const SDL_MouseWheelEvent& event) {
    mouseHandler.onMouseWheelScroll(event);
    cam->onMouseWheelScroll(event);
    if (actor) {
        actor->onMouseWheelScroll(event);
    }
}

void GLView::onMouseMove(const SDL_MouseMotionEvent& event) {
    mouseHandler.onMouseMove(event);
    cam->onMouseMove(event);
    if (actor) {
        actor->onMouseMove(event);
    }
}

void GLView::onKeyDown(const SDL_KeyboardEvent& event) {
    constexpr int decimals = 6;
    switch (event.keysym.sym) {
    case SDLK_F1:
        Report() << "Cam Pos: " << cam->getPosition().toString(decimals)
                 << " Look At Dir: " << cam->getLookDirection().toString(decimals) << "\n";
        break;
    case SDLK_F2:
        Report() << "Toggled Bounding Boxes for all Models...\n";
        worldLst->toggleModelBoundingBoxes();
        break;
    case SDLK_F3:
        Report() << "Toggled Bounding Boxes for all ModelMeshes...\n";
        worldLst->toggleMeshBoundingBoxes();
        break;
    case SDLK_F4:
        ManagerSDLTime::printTimeReport();
        break;
    case SDLK_F5:
        Report()
            << "VANTREL Lib build without preprocessor '#define VTL_CONFIG_USE_TNL'. No TNL Networking.\n";
        break;
    case SDLK_F6:
        debugViewEnabled = !debugViewEnabled;
        break;
    case SDLK_F7:
        Report() << ManagerTexture::toString() << "\n";
        break;
    case SDLK_F12:
        if (event.repeat == 0) { // a frame a press, however long it is
            renderer->setCaptureNextFrame(true);
        }
        break;
    default:
        break;
    }
    if (actor) {
        actor->onKeyDown(event);
    }
}

void GLView::onKeyUp(const SDL_KeyboardEvent& event) {
    if (actor) {
        actor->onKeyUp(event);
    }
}

bool GLView::handleGUIEvent(const SDL_Event& event) {
    // A press in the scene has the mouse until it ends, its first motion included.
    const bool isOfMouse = event.type >= SDL_MOUSEMOTION && event.type <= SDL_MOUSEBUTTONUP;
    const bool isScenes = mouseHandler.isDragging() || (isOfMouse && mouseHandler.isAnyDown());
    return !isScenes && ui.handleEvent(event, *worldLst);
}

LoopCode GLView::handleEvent(SDL_Event* event) {
    switch (event->type) {
    case 0:
        return LoopCode::restart;
    case SDL_QUIT:
        Report() << "SDL_QUIT event received...\n";
        return LoopCode::stop;
    case SDL_WINDOWEVENT:
        return handleWindowEvent(event);
    case SDL_SYSWMEVENT:
        return handleSysWMEvent(event);
    case SDL_KEYDOWN:
        if (event->key.keysym.sym == SDLK_ESCAPE) {
            return LoopCode::stop;
        }
        onKeyDown(event->key);
        break;
    case SDL_KEYUP:
        onKeyUp(event->key);
        break;
    case SDL_TEXTEDITING:
    case SDL_TEXTINPUT:
        break;
    case SDL_MOUSEMOTION:
        onMouseMove(event->motion);
        break;
    case SDL_MOUSEBUTTONDOWN:
        Report() << "SDL_MOUSEBUTTONDOWN...\n";
        onMouseDown(event->button);
        break;
    case SDL_MOUSEBUTTONUP:
        Report() << "SDL_MOUSEBUTTONUP...\n";
        onMouseUp(event->button);
        break;
    case SDL_MOUSEWHEEL:
        onMouseWheelScroll(event->wheel);
        break;
    case SDL_CLIPBOARDUPDATE:
        Report() << "SDL Clipboard Updated...\n";
        break;
    default:
        Report() << "GLView::handleEvent(): Unknown SDL_Event sdlEvent.type='" << event->type << "'\n";
        if (event->type == SDL_DROPFILE || event->type == SDL_DROPTEXT) {
            SDL_free(event->drop.file); // the receiver's
        }
        break;
    }
    return LoopCode::carryOn;
}

LoopCode GLView::handleWindowEvent(SDL_Event* event) {
    reportWindowEvent(event->window);
    if (event->window.event == SDL_WINDOWEVENT_RESIZED) {
        onResize(event->window.data1, event->window.data2);
    }
    return event->window.event == SDL_WINDOWEVENT_CLOSE ? LoopCode::stop : LoopCode::carryOn;
}

LoopCode GLView::handleSysWMEvent(SDL_Event* /*event*/) {
    Report() << "System OS Specific SDL Event:\n";
    return LoopCode::carryOn;
}

} // namespace Vantrel
