#include "vtl/scene/object/WorldList.h"

#include "vtl/scene/camera/Camera.h"
#include "vtl/scene/object/TimedObjectWalk.h"
#include "vtl/scene/object/WO.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace Vantrel {
namespace {

/** Whatever has no place of its own goes with those of type 3. */
bool isSortedByDistance(const WO* object) {
    const std::uint8_t type = object->renderOrderType;
    return type != 0 && type != 1 && type != 4;
}

} // namespace

void WorldList::sort(Camera* camera) {
    if (!sortEnabled || camera == nullptr) {
        return;
    }
    if (needsFullSort || !sortDistantPart(*camera)) {
        needsFullSort = false;
        sortFully(*camera);
    }
}

void WorldList::sortFully(const Camera& camera) {
    const std::vector<WO*> arrival = woList;
    woList.clear();
    const auto append = [&](std::uint8_t type) {
        std::ranges::copy_if(arrival, std::back_inserter(woList),
                             [type](const WO* object) { return object->renderOrderType == type; });
    };
    append(0);
    append(1);
    firstSortedIndex = woList.size();
    keyed.clear();
    for (auto object = arrival.rbegin(); object != arrival.rend(); ++object) { // of equal keys the last first
        if (isSortedByDistance(*object)) {
            keyed.push_back({finiteKey(camera, *object), *object});
        }
    }
    woList.resize(firstSortedIndex + keyed.size());
    writeSorted(firstSortedIndex);
    endSortedIndex = woList.size();
    append(4);
}

bool WorldList::sortDistantPart(const Camera& camera) {
    keyed.clear();
    for (std::size_t i = 0; i < woList.size(); ++i) {
        const bool isInSortedPart = i >= firstSortedIndex && i < endSortedIndex;
        if (isSortedByDistance(woList[i]) != isInSortedPart) {
            return false;
        }
        if (isInSortedPart) {
            keyed.push_back({finiteKey(camera, woList[i]), woList[i]});
        }
    }
    writeSorted(firstSortedIndex);
    return true;
}

void WorldList::writeSorted(std::size_t place) {
    const auto further = [](const Keyed& a, const Keyed& b) { return a.distance > b.distance; };
    if (!std::ranges::is_sorted(keyed, further)) {
        std::ranges::stable_sort(keyed, further);
    }
    for (const Keyed& entry : keyed) {
        woList[place++] = entry.object;
    }
}

float WorldList::finiteKey(const Camera& camera, const WO* object) const {
    const float key = distanceKey(camera.getPosition(), camera.getLookDirection(), object);
    return std::isnan(key) ? 0.0F : key;
}

void WorldList::render(Camera* camera) {
    drawTimed(woList, findCullingFrustum(camera), &ObjectTimes::renderMs, &ObjectTimes::renderCount,
              [camera](WO& object) { object.render(camera); });
}

float WorldList::distanceKey(const Vector& cameraPosition, const Vector& /*cameraLook*/,
                             const WO* object) const {
    return object->getModel() != nullptr ? (object->getPosition() - cameraPosition).magnitudeSquared() : 0.0F;
}

} // namespace Vantrel
