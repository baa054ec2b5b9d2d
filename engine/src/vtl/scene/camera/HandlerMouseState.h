#pragma once

#include <SDL.h>
#include <cstdint>

namespace Vantrel {

/**
 * What the mouse is doing: which buttons are held, where the press began, how far the last motion went. Told
 * of an event before the camera is. Main thread.
 */
class HandlerMouseState {
public:
    /** With the cursor captured during drags. */
    HandlerMouseState() { HandlerMouseState::reset(); }
    virtual ~HandlerMouseState() = default;

    virtual void onMouseDown(const SDL_MouseButtonEvent& event);
    virtual void onMouseUp(const SDL_MouseButtonEvent& event);
    virtual void onMouseWheelScroll(const SDL_MouseWheelEvent& event);
    virtual void onMouseMove(const SDL_MouseMotionEvent& event);
    /** Lets go of every button and of the cursor, and takes the middle of the window as the last press. */
    virtual void reset();

    /** Where the first button of the current press went down, in pixels of the window. */
    void getMouseDownPosition(int& pressX, int& pressY) const;
    bool isLeftDown() const { return down.left; }
    bool isRightDown() const { return down.right; }
    bool isMiddleDown() const { return down.middle; }
    bool isAnyDown() const { return down.any(); }
    /** Whether it was the left button that the last press was of. */
    bool isLeftPressed() const { return pressed.left; }
    /** The last motion with a button held, in pixels, y downwards. */
    int getDx() const { return dx; }
    int getDy() const { return dy; }
    /** Motion happened since the press. */
    bool isDragging() const { return dragging; }

private:
    /** The three flags of one kind, one for each button. */
    struct Buttons {
        bool left = false;
        bool right = false;
        bool middle = false;

        bool any() const { return left || right || middle; }
        /** The flag of an SDL button; null for a button that isn't handled. */
        bool* find(std::uint8_t sdlButton);
    };

    std::int32_t x = 0;
    std::int32_t y = 0;
    Buttons down;
    Buttons pressed;
    Buttons released;
    std::int32_t dx = 0;
    std::int32_t dy = 0;
    bool dragging = false;
    bool useRelativeMouseMode = true;
    bool relativeModeArmed = false;
};

} // namespace Vantrel
