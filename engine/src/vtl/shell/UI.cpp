#include "vtl/shell/UI.h"

#include "vtl/scene/camera/HeldKeys.h"
#include "vtl/scene/gui/WOGUIRoot.h"
#include "vtl/scene/object/WorldContainer.h"

namespace Vantrel {
namespace {

/** The topmost enabled widget at a pixel of the window, but for the root; null for none. */
WOGUI* findEnabled(const WorldContainer& world, int x, int y) {
    WOGUIRoot* const root = world.getRootGUI();
    WOGUI* const widget = root != nullptr ? root->widgetAt(x, y, WOGUI::Wanted::enabledOnes) : nullptr;
    return widget != root ? widget : nullptr;
}

} // namespace

bool UI::handleEvent(const SDL_Event& event, const WorldContainer& world) {
    switch (event.type) {
    case SDL_KEYDOWN:
        return onKeyDown(event.key, world);
    case SDL_KEYUP:
        return onKeyUp(event.key);
    case SDL_MOUSEBUTTONDOWN:
        return onMouseDown(event.button, world);
    case SDL_MOUSEBUTTONUP:
        return onMouseUp(event.button, world);
    case SDL_MOUSEMOTION:
        return onMouseMove(event.motion, world);
    default:
        return false;
    }
}

void UI::setFocusWidget(WOGUI* widget) {
    const WORef<WOGUI> next(widget); // which what the other one does may end
    if (focusWidget) {
        focusWidget->onLostFocus();
    }
    focusWidget = next;
    if (focusWidget) {
        focusWidget->onHasFocus();
    }
}

bool UI::onKeyDown(const SDL_KeyboardEvent& event, const WorldContainer& world) {
    if (event.keysym.sym == SDLK_TAB) {
        return moveFocus(world);
    }
    if (!focusWidget) {
        return false;
    }
    if (event.keysym.sym == SDLK_ESCAPE) {
        setFocusWidget(nullptr);
    } else if (focusWidget->getEnabled()) {
        focusWidget->onKeyDown(event);
    }
    return true;
}

bool UI::onKeyUp(const SDL_KeyboardEvent& event) {
    if (!focusWidget) {
        return false;
    }
    if (focusWidget->getEnabled()) {
        focusWidget->onKeyUp(event);
    }
    return true;
}

bool UI::onMouseDown(const SDL_MouseButtonEvent& event, const WorldContainer& world) {
    pressedWidget = findEnabled(world, event.x, event.y);
    if (!pressedWidget) {
        return false;
    }
    pressedWidget->onMouseDown(event);
    setFocusWidget(pressedWidget.get());
    return true;
}

bool UI::onMouseUp(const SDL_MouseButtonEvent& event, const WorldContainer& world) {
    const WORef<WOGUI> widget(findEnabled(world, event.x, event.y));
    if (!widget) {
        return false;
    }
    widget->onMouseUp(event);
    const bool isClick = widget && widget.get() == pressedWidget.get();
    pressedWidget = nullptr;
    if (isClick) {
        clickedWidget = widget;
        widget->onMouseClicked(event);
    }
    return true;
}

bool UI::onMouseMove(const SDL_MouseMotionEvent& event, const WorldContainer& world) {
    const WORef<WOGUI> widget(findEnabled(world, event.x, event.y));
    if (widget.get() != hoverWidget.get()) {
        if (hoverWidget) {
            hoverWidget->onMouseLeave(event);
        }
        hoverWidget = widget;
        if (hoverWidget) {
            hoverWidget->onMouseEnter(event);
        }
    }
    if (!widget) {
        return false;
    }
    widget->onMouseMove(event);
    return true;
}

bool UI::moveFocus(const WorldContainer& world) {
    const auto count = static_cast<int>(world.sizeGUI());
    const bool isBackward = isKeyHeld(SDL_SCANCODE_LSHIFT) || isKeyHeld(SDL_SCANCODE_RSHIFT);
    const int step = isBackward ? -1 : 1;
    int index = focusWidget ? world.getIndexOfGUIWidget(focusWidget.get()) : -1;
    if (index < 0 && isBackward) {
        index = count;
    }
    for (int tried = 0; tried < count; ++tried) {
        index = (index + step + count) % count;
        auto* const widget = dynamic_cast<WOGUI*>(world.getGUIWidgetAt(static_cast<std::size_t>(index)));
        if (widget != nullptr && widget->getFocusable() && widget->isVisible()) {
            setFocusWidget(widget);
            return true;
        }
    }
    return false;
}

} // namespace Vantrel
