#pragma once

#include <SDL.h>
#include <cstdint>
#include <string>

namespace Vantrel {

/**
 * Starts SDL, makes the one window and the one GL context, loads the GL entry points and keeps the window's
 * size. Everything is safe in windowless mode and after a failure, when there is no context. Main thread.
 */
class ManagerWindowing {
public:
    /** Starts from the configuration. Failures are reported, and `isWindowExisting` stays false. */
    static void init();
    /** Ends the context, the window and SDL; GL names die with the context. */
    static void shutdown();

    /** Takes a new size, both above 0, and sets the GL state for it. True when a window was resized. */
    static bool resize(int width, int height);
    static void setWindowTitle(const std::string& title);

    /** Null in windowless mode. */
    static SDL_Window* getWindow();
    /** Size in pixels, at least 1 once started. */
    static int getWindowWidth();
    static int getWindowHeight();
    /** The largest size that buffers are made for. */
    static int getMaxWindowWidth();
    static int getMaxWindowHeight();
    /** Size in pixels of what is drawn into: the bound frame buffer object, else the window. */
    static int getRenderTargetWidth();
    static int getRenderTargetHeight();

    /** True when window and context are both ready. */
    static bool isWindowExisting();
    static bool isStereoEnabled();
    static bool isSplitVertical();
    static bool isSplitHorizontal();

    /** True while a context is current, whether or not its window is ready. */
    static bool hasContext();
    /** Number of the current context, counted from 1 over the life of the process; 0 without a context. */
    static std::uint32_t getContextGeneration();

    /**
     * Shows the picture of the loading time in the form that suits the context. On the fixed-function path
     * the first call of the process shows it 600 times, and later ones not at all.
     */
    static void drawLoadingScreen();

    /** A report of the window, its framebuffer and the displays. */
    static std::string toString();
};

} // namespace Vantrel
