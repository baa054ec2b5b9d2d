#include "vtl/scene/gui/WOGUI.h"

#include "vtl/base/Report.h"
#include "vtl/gl/ManagerWindowing.h"
#include "vtl/scene/model/Model.h"

namespace Vantrel {
namespace {

/** Calls `visit(WOGUI&)` for the widgets right below one. */
template <class Visit>
void forEachChildWidget(const WO& parent, Visit&& visit) {
    const WorldObjectChildContainer& children = parent.getChildList();
    for (std::size_t i = 0; i < children.size(); ++i) {
        if (auto* const child = dynamic_cast<WOGUI*>(children.at(i))) {
            visit(*child);
        }
    }
}

} // namespace

WOGUI::WOGUI(WO* parent) {
    constexpr std::uint8_t guiOrder = 4;
    renderOrderType = guiOrder;
    setParentWorldObject(parent);
}

void WOGUI::setPosition(const Vector& place) {
    if (getParentWorldObject() == nullptr) {
        setModelPosition(place);
        return;
    }
    relativePosition.x = place.x;
    relativePosition.y = place.y;
    setModelPosition(toOwnerSpace(relativePosition));
}

void WOGUI::onKeyDown(const SDL_KeyboardEvent& /*event*/) {
    Report() << getLabel() << " void WOGUI::onKeyDown()\n";
}

void WOGUI::onKeyUp(const SDL_KeyboardEvent& /*event*/) {
    Report() << getLabel() << " void WOGUI::onKeyUp()\n";
}

void WOGUI::onMouseDown(const SDL_MouseButtonEvent& /*event*/) {
    Report() << getLabel() << " woID:" << getID()
             << " void WOGUI::onMouseDown( const SDL_MouseButtonEvent& e )\n";
}

void WOGUI::onMouseUp(const SDL_MouseButtonEvent& /*event*/) {
    Report() << getLabel() << " void WOGUI::onMouseUp( const SDL_MouseButtonEvent& e )\n";
}

void WOGUI::onMouseClicked(const SDL_MouseButtonEvent& /*event*/) {
    Report() << getLabel() << " void WOGUI::onMouseClicked( const SDL_MouseButtonEvent& e )\n";
}

void WOGUI::onMouseEnter(const SDL_MouseMotionEvent& /*event*/) {
    Report() << getLabel() << " void WOGUI::onMouseEnter( const SDL_MouseMotionEvent& e )\n";
}

void WOGUI::onMouseLeave(const SDL_MouseMotionEvent& /*event*/) {
    Report() << getLabel() << " void WOGUI::onMouseLeave( const SDL_MouseMotionEvent& e )\n";
}

void WOGUI::onHasFocus() {
    hasFocus = true;
    Report() << getLabel() << " void WOGUI::onHasFocus()\n";
}

void WOGUI::onLostFocus() {
    hasFocus = false;
    Report() << getLabel() << " void WOGUI::onLostFocus()\n";
}

void WOGUI::onResize(int width, int height) {
    forEachChildWidget(*this, [=](WOGUI& child) { child.onResize(width, height); });
}

void WOGUI::setModelPosition(const Vector& place) {
    setPositionOfThisOnly(place);
    forEachChildWidget(
        *this, [](WOGUI& child) { child.setModelPosition(child.toOwnerSpace(child.relativePosition)); });
}

WOGUI* WOGUI::widgetAt(int x, int y, Wanted wanted) {
    if (!isVisible() || !containsPixel(x, y)) {
        return nullptr;
    }
    const WorldObjectChildContainer& children = getChildList();
    for (std::size_t i = children.size(); i > 0; --i) { // later ones lie on top
        auto* const child = dynamic_cast<WOGUI*>(children.at(i - 1));
        if (WOGUI* const found = child != nullptr ? child->widgetAt(x, y, wanted) : nullptr) {
            return found;
        }
    }
    return wanted == Wanted::all || enabled ? this : nullptr;
}

bool WOGUI::containsPixel(int x, int y) const {
    if (getModel() == nullptr) {
        return false;
    }
    const int height = ManagerWindowing::getWindowHeight();
    const float right = static_cast<float>(x) / static_cast<float>(ManagerWindowing::getWindowWidth());
    const float up = static_cast<float>(height - y) / static_cast<float>(height);
    const BoundingBox& box = getModel()->getBoundingBox();
    const Vector low = getPosition() + box.getMin();
    const Vector high = getPosition() + box.getMax();
    return right >= low.x && right <= high.x && up >= low.y && up <= high.y;
}

Vector WOGUI::toOwnerSpace(const Vector& fractions) const {
    const WO* const parent = getParentWorldObject();
    if (parent == nullptr || parent->getModel() == nullptr) {
        return fractions;
    }
    const Vector centre = parent->getPosition();
    const Vector size = parent->getModel()->getBoundingBox().getLxLyLz();
    return {centre.x + (fractions.x - 0.5F) * size.x, centre.y + (fractions.y - 0.5F) * size.y, 1.0F};
}

} // namespace Vantrel
