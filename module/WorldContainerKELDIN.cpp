#include "module/WorldContainerKELDIN.h"

#include "module/WORunway.h"
#include "vtl/base/Report.h"
#include "vtl/scene/SceneHost.h"
#include "vtl/scene/object/WO.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

namespace Vantrel {
namespace {

constexpr std::size_t firstCount = 5;

/** The place of an object that is drawn first; `firstCount` for any other. */
std::size_t placeOf(const WO* object) {
    constexpr std::array<std::string_view, firstCount> labels{"Ground", "World Grid", "", "Editor Ground",
                                                              "Editor Grid"};
    constexpr std::size_t runway = 2;
    if (dynamic_cast<const WORunway*>(object) != nullptr) {
        return runway;
    }
    const std::string& label = object->getLabel();
    return label.empty() ? firstCount
                         : static_cast<std::size_t>(std::ranges::find(labels, label) - labels.begin());
}

} // namespace

void WorldContainerKELDIN::sort(Camera* /*camera*/) {
    if (!needsFullSort) {
        return;
    }
    needsFullSort = false;
    Report() << "Full sort!\n";
    std::array<WO*, firstCount> first{};
    std::vector<WO*> others;
    for (WO* const object : woList) {
        const std::size_t place = placeOf(object);
        if (place < firstCount && first[place] == nullptr) {
            first[place] = object;
        } else {
            others.push_back(object);
        }
    }
    woList.clear();
    std::ranges::copy_if(first, std::back_inserter(woList),
                         [](const WO* object) { return object != nullptr; });
    woList.insert(woList.end(), others.begin(), others.end());
}

void WorldContainerKELDIN::render(Camera* camera) {
    const VantrelGeometryFrustum* const frustum = findCullingFrustum(SceneHost::findCamera());
    ManagerSDLTime::startStopwatch(Stopwatch::object);
    for (WO* const object : woList) {
        if (frustum == nullptr || object->isInFrustum(*frustum)) {
            object->render(camera);
        } else {
            Report() << "Culling " << object->getLabel() << "\n";
        }
        ObjectTimes& times = timesOf(*object);
        times.renderMs += ManagerSDLTime::restartStopwatch(Stopwatch::object);
        ++times.renderCount;
    }
}

} // namespace Vantrel
