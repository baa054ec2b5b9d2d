#pragma once

#include "vtl/math/VectorT.h"
#include "vtl/scene/gui/IFaceGUIWidget.h"
#include "vtl/scene/object/WO.h"

namespace Vantrel {

/**
 * A widget: a rectangle in the unit square of the window, (0, 0) at the bottom left, which hears of the mouse
 * and the keyboard before the scene does. It is placed in fractions of its parent and moves with it.
 */
class WOGUI : public WO, public IFaceGUIWidget {
public:
    static std::string getClassName() { return "WOGUI"; }
    /** Stays below `parent`, if there is one; the model is `onCreate`'s to make. */
    explicit WOGUI(WO* parent);

    /** The centre as fractions of the parent's size; without a parent its place in the unit square. */
    using WO::setPosition;
    void setPosition(const Vector& place) override;
    void onKeyDown(const SDL_KeyboardEvent& event) override;
    void onKeyUp(const SDL_KeyboardEvent& event) override;
    void onMouseDown(const SDL_MouseButtonEvent& event) override;
    void onMouseUp(const SDL_MouseButtonEvent& event) override;

    /** Pressed and released over the widget. */
    virtual void onMouseClicked(const SDL_MouseButtonEvent& event);
    virtual void onMouseEnter(const SDL_MouseMotionEvent& event);
    virtual void onMouseLeave(const SDL_MouseMotionEvent& event);
    /** Keys go to this widget from now on. */
    virtual void onHasFocus();
    virtual void onLostFocus();
    /** The window has that size in pixels now. */
    virtual void onResize(int width, int height);
    /** The centre in the unit square; the widgets below follow by their fractions. */
    virtual void setModelPosition(const Vector& place);

    enum class Wanted : std::uint8_t { all, enabledOnes };
    /**
     * The topmost visible widget at a pixel of the window, y downwards: this one or one of its tree; null for
     * none. One that isn't wanted lets through to what is under it.
     */
    WOGUI* widgetAt(int x, int y, Wanted wanted = Wanted::all);
    /** Whether the rectangle holds that pixel, its edges included. */
    bool containsPixel(int x, int y) const;
    bool getHasFocus() const { return hasFocus; }
    /** A widget that is not enabled is as good as none for the mouse, and hears of no key. */
    bool getEnabled() const { return enabled; }
    void setEnabled(bool isEnabled) { enabled = isEnabled; }
    /** Whether Tab may reach it. */
    bool getFocusable() const { return focusable; }
    void setFocusable(bool isFocusable) { focusable = isFocusable; }

private:
    Vector toOwnerSpace(const Vector& fractions) const;

    bool hasFocus = false;
    bool enabled = true;
    bool focusable = true;
    Vector relativePosition{0.5F, 0.5F, 1.0F};
};

} // namespace Vantrel
