#pragma once

#include "vtl/scene/gui/IFaceGUIWidget.h"
#include "vtl/scene/object/WO.h"

#include <memory>

namespace Vantrel {

/** The root of all widgets of a world: their tree and nothing else. */
class WOGUIRoot : public WO, public IFaceGUIWidget {
public:
    static std::string getClassName() { return "WOGUIRoot"; }
    /** Of that share of the window in each direction. */
    static std::unique_ptr<WOGUIRoot> New(WO* parent, float width, float height);

    using WO::onCreate;
    virtual void onCreate(float width, float height);
};

} // namespace Vantrel
