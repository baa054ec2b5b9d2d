#pragma once

#include "vtl/scene/object/WorldList.h"

namespace Vantrel {

/**
 * The world of the navaid scene: ground, grid and runway lie in one plane and are drawn in a fixed order
 * before everything else. Main thread.
 */
class WorldContainerKELDIN : public WorldList {
public:
    /** With the root of the widgets. */
    WorldContainerKELDIN() : WorldList(true, GUIRoot::made) {}

    /** After a change of the list: what is drawn first goes to the front, the rest keeps its order. */
    void sort(Camera* camera) override;
    /** Reports whatever is outside of the view, where culling is on. */
    void render(Camera* camera) override;
};

} // namespace Vantrel
