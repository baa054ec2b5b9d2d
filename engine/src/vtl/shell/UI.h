#pragma once

#include "vtl/scene/gui/WOGUI.h"
#include "vtl/scene/object/WORef.h"

#include <SDL.h>

namespace Vantrel {

class WorldContainer;

/**
 * Takes events to the widgets before the scene sees them: those of the mouse to the topmost one under the
 * pointer, those of the keyboard to the one that has the focus. Main thread.
 */
class UI {
public:
    UI() = default;
    UI(const UI&) = delete;
    UI& operator=(const UI&) = delete;
    virtual ~UI() = default;

    /** Offers an event to the widgets of a world; true when one of them has taken it. */
    bool handleEvent(const SDL_Event& event, const WorldContainer& world);

    /** The next four are null for none, or when the widget has died. */
    WOGUI* getHoverWidget() const { return hoverWidget.get(); }
    WOGUI* getPressedWidget() const { return pressedWidget.get(); }
    WOGUI* getClickedWidget() const { return clickedWidget.get(); }
    WOGUI* getFocusWidget() const { return focusWidget.get(); }
    /** Null takes the focus from the widget that has it. */
    void setFocusWidget(WOGUI* widget);

private:
    bool onKeyDown(const SDL_KeyboardEvent& event, const WorldContainer& world);
    bool onKeyUp(const SDL_KeyboardEvent& event);
    bool onMouseDown(const SDL_MouseButtonEvent& event, const WorldContainer& world);
    bool onMouseUp(const SDL_MouseButtonEvent& event, const WorldContainer& world);
    bool onMouseMove(const SDL_MouseMotionEvent& event, const WorldContainer& world);
    bool moveFocus(const WorldContainer& world);

    WORef<WOGUI> hoverWidget;
    WORef<WOGUI> pressedWidget;
    WORef<WOGUI> clickedWidget;
    WORef<WOGUI> focusWidget;
};

} // namespace Vantrel
