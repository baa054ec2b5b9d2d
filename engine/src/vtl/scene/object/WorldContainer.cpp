#include "vtl/scene/object/WorldContainer.h"

#include "vtl/gl/GLError.h"
#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/scene/object/WO.h"

#include <algorithm>

namespace Vantrel {

bool WorldContainer::eraseViaWO(WO* object) {
    const auto entry = std::find(woList.begin(), woList.end(), object);
    if (entry == woList.end()) {
        return false;
    }
    woList.erase(entry);
    return true;
}

void WorldContainer::render(Camera* camera) {
    for (std::size_t i = 0; i < woList.size(); ++i) {
        WO* const object = woList[i];
        ManagerSDLTime::startStopwatch(Stopwatch::object);
        ManagerOpenGLState::restorePerObjectState();
        ManagerSDLTime::totals().preservingStateMs += ManagerSDLTime::readStopwatch(Stopwatch::object);

        ManagerSDLTime::startStopwatch(Stopwatch::object);
        object->render(camera);
        ObjectTimes& times = timesOf(*object);
        times.renderMs += ManagerSDLTime::readStopwatch(Stopwatch::object);
        ++times.renderCount;

        ManagerSDLTime::startStopwatch(Stopwatch::object);
        checkGLError(static_cast<std::int32_t>(i), object);
        ManagerSDLTime::totals().errorsMs += ManagerSDLTime::readStopwatch(Stopwatch::object);
    }
}

ObjectTimes& WorldContainer::timesOf(const WO& object) {
    return ManagerSDLTime::timesOf(object);
}

bool WorldContainer::contains(const WO* object) const {
    return std::find(woList.begin(), woList.end(), object) != woList.end();
}

WO* WorldContainer::getWOByID(std::uint32_t id) const {
    const auto entry =
        std::find_if(woList.begin(), woList.end(), [id](const WO* object) { return object->getID() == id; });
    return entry != woList.end() ? *entry : nullptr;
}

} // namespace Vantrel
