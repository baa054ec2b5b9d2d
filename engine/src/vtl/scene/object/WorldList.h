#pragma once

#include "vtl/math/VectorT.h"
#include "vtl/scene/object/WorldContainer.h"

#include <cstddef>
#include <vector>

namespace Vantrel {

/**
 * The list that draws its objects sorted: those of order type 0 first, then 1, both as they came, then 3 from
 * far to near, then 4 as they came. Main thread.
 */
class WorldList : public WorldContainer {
public:
    /** Without `isSorted` the order stays that of arrival. */
    explicit WorldList(bool isSorted = true, GUIRoot guiRoot = GUIRoot::none)
        : WorldContainer(guiRoot), sortEnabled(isSorted) {}

    /** After a change of the list sorts all of it, otherwise those of type 3 alone. */
    void sort(Camera* camera) override;
    void render(Camera* camera) override;
    /** What the objects of type 3 are sorted by, greatest first: the squared distance from the camera. */
    virtual float distanceKey(const Vector& cameraPosition, const Vector& cameraLook, const WO* object) const;

protected:
    void onListChanged() override { needsFullSort = true; }

    bool needsFullSort = true;

private:
    struct Keyed {
        float distance;
        WO* object;
    };

    void sortFully(const Camera& camera);
    /** False, and nothing done, when an object's order type has changed and with it the part it belongs to.
     */
    bool sortDistantPart(const Camera& camera);
    float finiteKey(const Camera& camera, const WO* object) const;
    void writeSorted(std::size_t place);

    /** The part of the list that is sorted for every frame. */
    std::size_t firstSortedIndex = 0;
    std::size_t endSortedIndex = 0;
    bool sortEnabled;
    /** Room for a sort, kept between frames. */
    std::vector<Keyed> keyed;
};

} // namespace Vantrel
