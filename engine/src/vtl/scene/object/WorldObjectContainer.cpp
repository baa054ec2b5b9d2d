#include "vtl/scene/object/WorldObjectContainer.h"

#include "vtl/scene/object/WO.h"

namespace Vantrel {

WorldObjectContainer::~WorldObjectContainer() {
    if (currentWalk != nullptr) {
        currentWalk->isListGone = true;
    }
    WorldObjectContainer::resize(0);
}

void WorldObjectContainer::resize(std::size_t count) {
    for (std::size_t i = count; i < objects.size(); ++i) {
        if (objects[i] != nullptr) {
            objects[i]->removeObserver(*this);
        }
    }
    objects.resize(count);
}

void WorldObjectContainer::push_back(WO* object) {
    objects.push_back(object);
    if (object != nullptr) {
        object->addObserver(*this);
    }
}

bool WorldObjectContainer::eraseViaWO(WO* object) {
    const auto index = ObjectList::find(objects, object);
    return index.has_value() && eraseViaWOIndex(*index);
}

bool WorldObjectContainer::eraseViaWOIndex(std::size_t index) {
    return eraseAt(index, "WorldObjectContainer");
}

bool WorldObjectContainer::eraseAt(std::size_t index, const char* className) {
    if (!ObjectList::checkIndex(objects, index, className)) {
        return false;
    }
    if (objects[index] != nullptr) {
        objects[index]->removeObserver(*this);
    }
    objects.erase(objects.begin() + static_cast<std::ptrdiff_t>(index));
    return true;
}

void WorldObjectContainer::onWODestroyed(const WO& object) {
    ObjectList::dropLast(objects, object);
}

} // namespace Vantrel
