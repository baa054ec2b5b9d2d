#include "vtl/scene/gui/WOGUIRoot.h"

#include "vtl/base/Report.h"
#include "vtl/scene/model/MGLNullModel.h"

namespace Vantrel {

std::unique_ptr<WOGUIRoot> WOGUIRoot::New(WO* parent, float width, float height) {
    Report() << "Creating GUI Root\n";
    auto root = std::make_unique<WOGUIRoot>(parent);
    root->onCreate(width, height);
    Report() << "GUI Root created\n";
    return root;
}

WOGUIRoot::WOGUIRoot(WO* parent) : WOGUI(parent) {
    setFocusable(false);
}

void WOGUIRoot::onCreate(float width, float height) {
    auto rectangle = std::make_unique<MGLNullModel>(this);
    rectangle->setBoundingBoxLengths(Vector(width, height, 0.0F));
    setModel(std::move(rectangle));
    setPosition(Vector(0.5F, 0.5F, 1.0F));
}

} // namespace Vantrel
