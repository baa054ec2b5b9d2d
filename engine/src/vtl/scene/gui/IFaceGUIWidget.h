#pragma once

#include "vtl/scene/object/IFace.h"

namespace Vantrel {

/** A world object that is a widget of the GUI: lists keep it below the root of their widgets. */
class IFaceGUIWidget : public virtual IFace {
public:
    IFaceGUIWidget() { addInterface(guiWidget); }
};

} // namespace Vantrel
