#pragma once

#include "vtl/scene/object/WorldObjectContainer.h"

namespace Vantrel {

/** The children of a world object, which destroys them; an erased one belongs to who erased it. */
class WorldObjectChildContainer final : public WorldObjectContainer {
public:
    /**
     * Takes the child over, from another list of children if it is in one, and tells the world, when the tree
     * that it joins stands there. A child that has this list below it is refused with a report. Without a
     * parent set the process ends after a key.
     */
    void push_back(WO* child) override;
    /** The same for a child that goes, which keeps its parent. */
    bool eraseViaWOIndex(std::size_t index) override;
    virtual void setParentWO(WO* parent) { parentWO = parent; }

private:
    WO* parentWO = nullptr;
};

} // namespace Vantrel
