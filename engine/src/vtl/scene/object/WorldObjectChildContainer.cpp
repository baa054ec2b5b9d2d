#include "vtl/scene/object/WorldObjectChildContainer.h"

#include "vtl/base/Pause.h"
#include "vtl/base/Report.h"
#include "vtl/scene/SceneHost.h"
#include "vtl/scene/object/WO.h"
#include "vtl/scene/object/WorldContainer.h"

namespace Vantrel {
namespace {

WO* rootOf(WO* object) {
    while (WO* const parent = object->getParentWorldObject()) {
        object = parent;
    }
    return object;
}

void tellWorldOfChild(WO* child) {
    WorldContainer* const world = SceneHost::findWorld();
    if (world == nullptr) {
        Report() << "WARNING: WorldContainer has not been fully created within GLView; newly inserted\n"
                 << "WO may not have had WorldContainer callbacks invoked...\n";
        return;
    }
    WO* const root = rootOf(child);
    if (world->contains(root)) {
        world->onChildInserted(child, root);
    }
}

} // namespace

void WorldObjectChildContainer::push_back(WO* child) {
    if (parentWO == nullptr) {
        Report() << "ERROR in: void WorldObjectChildContainer::push_back( WO* child )...\n"
                 << "   WorldObjectChildContainer::parentWO is NULL. This should be set from\n"
                 << "   within WO::initInstanceData() during WO construction...\n"
                 << "   Press ENTER to exit...\n";
        Pause::exitAfterKey();
    }
    if (child == nullptr) {
        WorldObjectContainer::push_back(nullptr);
        return;
    }
    if (parentWO->isInTreeOf(*child)) {
        Report() << "WARNING: WorldObjectChildContainer::push_back( WO* child )...\n"
                 << "   '" << child->getLabel() << "' has this WO below it, not inserting...\n";
        return;
    }
    if (WO* const former = child->getParentWorldObject()) {
        former->getChildList().eraseViaWO(child);
    }
    WorldObjectContainer::push_back(child);
    child->setParentWorldObject(parentWO);
    tellWorldOfChild(child);
}

bool WorldObjectChildContainer::eraseViaWOIndex(std::size_t index) {
    WO* const child = index < size() ? at(index) : nullptr;
    if (!eraseAt(index, "WorldObjectChildContainer")) {
        return false;
    }
    if (WorldContainer* const world = SceneHost::findWorld(); world != nullptr && child != nullptr) {
        world->onChildErased(child);
    }
    return true;
}

} // namespace Vantrel
