#pragma once

#include "vtl/scene/gui/WOGUI.h"

#include <memory>

namespace Vantrel {

/** The root of all widgets of a world, which Tab never reaches. */
class WOGUIRoot : public WOGUI {
public:
    static std::string getClassName() { return "WOGUIRoot"; }
    /** Of that share of the window in each direction. */
    static std::unique_ptr<WOGUIRoot> New(WO* parent, float width, float height);

    explicit WOGUIRoot(WO* parent);

    using WO::onCreate;
    virtual void onCreate(float width, float height);
};

} // namespace Vantrel
