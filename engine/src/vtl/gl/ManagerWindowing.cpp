#include "vtl/gl/ManagerWindowing.h"

#include "vtl/base/ManagerEnvironmentConfiguration.h"
#include "vtl/base/Pause.h"
#include "vtl/base/Report.h"
#include "vtl/base/SourceLocation.h"
#include "vtl/base/TickSource.h"
#include "vtl/gl/GLEntryPoints.h"
#include "vtl/gl/GLError.h"
#include "vtl/gl/LoadingScreen.h"
#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/gl/SDLReport.h"
#include "vtl/gl/WindowIcon.h"
#include "vtl/gl/framebuffer/VantrelFrameBufferObject.h"

#include <algorithm>

namespace Vantrel {
namespace {

using Configuration = ManagerEnvironmentConfiguration;

constexpr int maxWidth = 1920;
constexpr int maxHeight = 1200;

struct State {
    bool isStarted = false;
    SDL_Window* window = nullptr;
    SDL_GLContext context = nullptr;
    /** 0 while no context is current. */
    std::uint32_t contextGeneration = 0;
    bool windowExists = false;
    bool stereoEnabled = false;
    bool splitVertical = false;
    bool splitHorizontal = false;
    std::uint32_t windowFlags = 0;
    int width = 0;
    int height = 0;
};

State state;

// These two count over the life of the process.
std::uint32_t contextsMade = 0;
std::int32_t loadingScreenRepeats = 600;

void startSDL() {
    // Nothing here makes a sound; SDL would start a thread that watches for sound devices.
    SDL_SetHint(SDL_HINT_AUDIODRIVER, "dummy");
    // The shell has handlers of its own.
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    if (SDL_Init(SDL_INIT_EVERYTHING) < 0) {
        Report() << "ManagerWindowing::init(): Initialization SDL_ERROR: '" << takeSDLError() << "'\n";
    } else {
        Report() << "Initialized SDL...\n";
    }
    state.isStarted = true;
    setTickSource([] { return SDL_GetTicks(); });
}

void readConfiguredSize() {
    state.width = std::max(Configuration::getWidth(), 1);
    state.height = std::max(Configuration::getHeight(), 1);
}

void requestFramebuffer() {
    constexpr int depthBits = 24;
    constexpr int channelBits = 8;
    SDL_GL_ResetAttributes();
    SDL_GL_SetAttribute(SDL_GL_DEPTH_SIZE, depthBits);
    SDL_GL_SetAttribute(SDL_GL_RED_SIZE, channelBits);
    SDL_GL_SetAttribute(SDL_GL_GREEN_SIZE, channelBits);
    SDL_GL_SetAttribute(SDL_GL_BLUE_SIZE, channelBits);
    SDL_GL_SetAttribute(SDL_GL_ALPHA_SIZE, channelBits);
    SDL_GL_SetAttribute(SDL_GL_STENCIL_SIZE, channelBits);
    SDL_GL_SetAttribute(SDL_GL_DOUBLEBUFFER, 1);
    SDL_GL_SetAttribute(SDL_GL_ACCELERATED_VISUAL, 1);
}

void requestStereo() {
    const std::string mode = Configuration::getVariableValue("stereomode");
    state.stereoEnabled = Configuration::isNotZeroText("usestereo");
    if (!state.stereoEnabled) {
        SDL_GL_SetAttribute(SDL_GL_STEREO, 0);
    } else if (mode == "full") {
        SDL_GL_SetAttribute(SDL_GL_STEREO, 1);
    }
    state.splitHorizontal = mode == "splithorizontal";
    state.splitVertical = mode == "splitvertical";
    Report() << "Stereoscopic Rendering Enabled: " << state.stereoEnabled << "\n";
}

void chooseWindowFlags() {
    state.windowFlags = SDL_WINDOW_OPENGL | SDL_WINDOW_SHOWN | SDL_WINDOW_RESIZABLE;
    if (Configuration::isFullscreen()) {
        state.windowFlags |= SDL_WINDOW_FULLSCREEN;
    }
}

int requestedProfileMask() {
    if (!isGLVersion32OrGreater(Configuration::getGLContextMajorVersion(),
                                Configuration::getGLContextMinorVersion()) ||
        Configuration::isGLProfileCompatibility()) {
        return SDL_GL_CONTEXT_PROFILE_COMPATIBILITY;
    }
    return Configuration::isGLProfileCore() ? SDL_GL_CONTEXT_PROFILE_CORE : SDL_GL_CONTEXT_PROFILE_ES;
}

void requestContext() {
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_MAJOR_VERSION, Configuration::getGLContextMajorVersion());
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_MINOR_VERSION, Configuration::getGLContextMinorVersion());
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, requestedProfileMask());
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_FLAGS, SDL_GL_CONTEXT_DEBUG_FLAG);
}

bool createWindow() {
    Report() << "Creating Window...\n";
    state.window = SDL_CreateWindow("VANTREL Base Title", SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED,
                                    state.width, state.height, state.windowFlags);
    if (state.window != nullptr) {
        Report() << "Window successfully created...\n";
        return true;
    }
    const std::string error = SDL_GetError();
    Report() << "\n"
             << ManagerWindowing::toString() << "\n"
             << "ERROR ManagerWindowing::init(): Failed to create SDL 2.0 Window...\n"
             << "Cannot create OpenGL Context, returning from ManagerWindows::init early... SDL Error is: '"
             << error << "'\n";
    return false;
}

void reportContextFailure() {
    Report() << "ERROR ManagerWindowing::init(): Failed to create OpenGL Context Window: '" << takeSDLError()
             << "'\n"
             << "Pausing... (remove me)\n";
    Pause::waitForKey();
    Report() << "\n" << ManagerOpenGLState::toString() << "\n";
    ManagerOpenGLState::setContextProfile(VTL_GL_CONTEXT_PROFILE::UNINITIALIZED, -1, -1);
}

bool createContext() {
    Report() << "Creating OpenGL Context...\n";
    state.context = SDL_GL_CreateContext(state.window);
    if (state.context == nullptr) {
        reportContextFailure();
        return false;
    }
    state.contextGeneration = ++contextsMade;
    return true;
}

const char* requestedProfileName() {
    if (Configuration::isGLProfileCompatibility()) {
        return "COMPATIBILITY\n";
    }
    return Configuration::isGLProfileCore() ? "CORE\n" : "ES\n";
}

const char* createdProfileName(int mask) {
    switch (mask) {
    case SDL_GL_CONTEXT_PROFILE_COMPATIBILITY:
        return "SDL_GL_CONTEXT_PROFILE_COMPATIBILITY\n";
    case SDL_GL_CONTEXT_PROFILE_CORE:
        return "SDL_GL_CONTEXT_PROFILE_CORE\n";
    case SDL_GL_CONTEXT_PROFILE_ES:
        return "SDL_GL_CONTEXT_PROFILE_ES\n";
    default:
        return "Uninitialized Context Type\n"
               "      OpenGL Version set in .conf is probably 3.2 or earlier.\n"
               "      Versions before 3.2 do not consider these values...\n";
    }
}

int attributeOfContext(SDL_GLattr attribute) {
    int value = 0;
    SDL_GL_GetAttribute(attribute, &value);
    return value;
}

void reportContext() {
    Report() << "Successfully created OpenGL Context. SDL reports instantiated version is "
             << attributeOfContext(SDL_GL_CONTEXT_MAJOR_VERSION) << "."
             << attributeOfContext(SDL_GL_CONTEXT_MINOR_VERSION) << "..." << locationText() << "\n"
             << "ManagerWindowing::init(): Attempted to create OpenGL Context Version "
             << Configuration::getGLContextMajorVersion() << "." << Configuration::getGLContextMinorVersion()
             << "\n"
             << "   OpenGL Context Profile requested in .conf file is " << requestedProfileName()
             << "   SDL Reports creation of OpenGL Context: "
             << createdProfileName(attributeOfContext(SDL_GL_CONTEXT_PROFILE_MASK));
}

void loadEntryPoints() {
    loadGLEntryPoints(attributeOfContext(SDL_GL_CONTEXT_PROFILE_MASK) == SDL_GL_CONTEXT_PROFILE_CORE);
    checkGLError(130001);
    Report() << "Init of GLEW was successful...\n"
             << "OpenGL Context successfully created...\n"
             << "SDL_Error reports: '" << takeSDLError() << "'\n";
}

bool makeContextCurrent() {
    Report() << "Making OpenGL Context the current Context...\n";
    if (SDL_GL_MakeCurrent(state.window, state.context) != 0) {
        state.contextGeneration = 0;
        Report() << "ERROR ManagerWindowing::init(): Failed to make OpenGL Context the current Context:\n'"
                 << takeSDLError() << "'\n";
        return false;
    }
    Report() << "SDL_Error reports: '" << takeSDLError() << "'\n";
    state.windowExists = true;
    return true;
}

void keepWindowOnFocusLoss() {
    if (SDL_SetHint("SDL_VIDEO_MINIMIZE_ON_FOCUS_LOSS", "0") == SDL_TRUE) {
        Report() << "SDL_VIDEO_MINIMIZE_ON_FOCUS_LOSS set to 0...\n";
    }
}

void setWindowIcon() {
    auto pixels = windowIconPixels();
    constexpr int bitsPerPixel = 32;
    constexpr int pitch = windowIconSide * static_cast<int>(sizeof(pixels[0]));
    SDL_Surface* const icon =
        SDL_CreateRGBSurfaceFrom(pixels.data(), windowIconSide, windowIconSide, bitsPerPixel, pitch,
                                 0xFF000000, 0x00FF0000, 0x0000FF00, 0x000000FF);
    if (icon != nullptr) {
        SDL_SetWindowIcon(state.window, icon);
        SDL_FreeSurface(icon);
    }
}

/** False where the start ends early. */
bool openWindow() {
    // Sound or joysticks can fail the start of SDL as a whole; a window needs the video part alone.
    if (SDL_WasInit(SDL_INIT_VIDEO) == 0) {
        SDL_InitSubSystem(SDL_INIT_VIDEO);
    }
    requestFramebuffer();
    requestStereo();
    chooseWindowFlags();
    requestContext();
    if (!createWindow() || !createContext()) {
        return false;
    }
    reportContext();
    SDL_GL_SetSwapInterval(Configuration::getInt("vsync"));
    loadEntryPoints();
    if (!makeContextCurrent()) {
        return false;
    }
    keepWindowOnFocusLoss();
    checkGLError(130002);
    ManagerWindowing::resize(state.width, state.height);
    setWindowIcon();
    Report() << "ManagerWindowing has been initiailized...\n";
    return true;
}

void clearColorAndDepth() {
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

void present() {
    glFlush();
    SDL_GL_SwapWindow(state.window);
}

void showLoadingPicture(const LoadingScreen& screen) {
    screen.drawPicture();
    present();
    clearColorAndDepth();
}

void showSplitEyePicture(const LoadingScreen& screen) {
    screen.drawEyePicture({1.0F, 0.0F, 0.0F});
    present();
    clearColorAndDepth();
}

void showEyePictures(const LoadingScreen& screen) {
    GLint drawBuffer = GL_BACK;
    glGetIntegerv(GL_DRAW_BUFFER, &drawBuffer);
    glDrawBuffer(GL_BACK_RIGHT);
    screen.drawEyePicture({0.195489F, 1.0F, 1.0F});
    glDrawBuffer(GL_BACK_LEFT);
    screen.drawEyePicture({0.8F, 0.8F, 0.8F});
    glDrawBuffer(static_cast<GLenum>(drawBuffer));
    present();
}

struct Size {
    int width;
    int height;
};

Size renderTargetSize() {
    Size size{state.width, state.height};
    VantrelFrameBufferObject::getCurrentTargetSize(&size.width, &size.height);
    return size;
}

} // namespace

void ManagerWindowing::init() {
    shutdown();
    startSDL();
    readConfiguredSize();
    const bool isWindowless = Configuration::getInt("createwindow") == 0;
    if (isWindowless || openWindow()) {
        setWindowTitle("VANTREL Engine Module...");
    }
}

void ManagerWindowing::shutdown() {
    if (!state.isStarted) {
        return;
    }
    VantrelFrameBufferObject::forgetBinds();
    if (state.context != nullptr) {
        SDL_GL_DeleteContext(state.context);
    }
    if (state.window != nullptr) {
        SDL_DestroyWindow(state.window);
    }
    state = State{};
    setTickSource(nullptr);
    SDL_Quit();
}

bool ManagerWindowing::resize(int width, int height) {
    if (width <= 0 || height <= 0) {
        return false;
    }
    state.width = width;
    state.height = height;
    if (!state.windowExists) {
        return false;
    }
    glViewport(0, 0, width, height);
    ManagerOpenGLState::reInitOpenGLState();
    return true;
}

void ManagerWindowing::setWindowTitle(const std::string& title) {
    if (state.window != nullptr) {
        SDL_SetWindowTitle(state.window, title.c_str());
    }
}

SDL_Window* ManagerWindowing::getWindow() {
    return state.window;
}

int ManagerWindowing::getWindowWidth() {
    return state.width;
}

int ManagerWindowing::getWindowHeight() {
    return state.height;
}

int ManagerWindowing::getMaxWindowWidth() {
    return maxWidth;
}

int ManagerWindowing::getMaxWindowHeight() {
    return maxHeight;
}

int ManagerWindowing::getRenderTargetWidth() {
    return renderTargetSize().width;
}

int ManagerWindowing::getRenderTargetHeight() {
    return renderTargetSize().height;
}

bool ManagerWindowing::isWindowExisting() {
    return state.windowExists;
}

bool ManagerWindowing::isStereoEnabled() {
    return state.stereoEnabled;
}

bool ManagerWindowing::isSplitVertical() {
    return state.splitVertical;
}

bool ManagerWindowing::isSplitHorizontal() {
    return state.splitHorizontal;
}

bool ManagerWindowing::hasContext() {
    return state.contextGeneration != 0;
}

std::uint32_t ManagerWindowing::getContextGeneration() {
    return state.contextGeneration;
}

void ManagerWindowing::drawLoadingScreen() {
    if (!state.windowExists) {
        Report() << "ManagerWindowing::windowExists is false\n";
        return;
    }
    const LoadingScreen screen;
    if (!screen.isDrawable()) {
        return;
    }
    if (state.stereoEnabled) {
        state.splitHorizontal || state.splitVertical ? showSplitEyePicture(screen) : showEyePictures(screen);
    } else if (ManagerOpenGLState::isVersion32OrGreater()) {
        showLoadingPicture(screen);
    } else if (ManagerOpenGLState::isCompatibilityProfile()) {
        for (; loadingScreenRepeats > 0; --loadingScreenRepeats) {
            showLoadingPicture(screen);
        }
    }
}

std::string ManagerWindowing::toString() {
    ReportText text;
    text << "ManagerWindowing::toString() Immediately before SDL_GL_Attributes... SDL_Error reports: '"
         << takeSDLError() << "'\n"
         << "SDL_GL_Attributes:\n";
    writeGLAttributes(text);
    text << "ManagerWindowing::toString() Immediately before SDL_Display_Attributes... SDL_Error reports: '"
         << takeSDLError() << "'\n"
         << "SDL_Display_Attributes:\n\n"
         << "Window Width:" << state.width << "\n"
         << "Window Height:" << state.height << "\n"
         << "Max Window Width:" << maxWidth << "\n"
         << "Max Window Height:" << maxHeight << "\n";
    writeDisplays(text);
    return text.str();
}

} // namespace Vantrel
