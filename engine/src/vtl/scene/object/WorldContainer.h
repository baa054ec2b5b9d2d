#pragma once

#include "vtl/base/ManagerSDLTime.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Vantrel {

class Camera;
class WO;

/**
 * An ordered list of world objects. It owns none of them: who made an object destroys it, and what is left in
 * the world at the end goes with `GLView`.
 */
class WorldContainer {
public:
    virtual ~WorldContainer() = default;

    virtual std::size_t size() const { return woList.size(); }
    /** Entry `i`, which must be below `size()`. */
    virtual WO* at(std::size_t i) const { return woList[i]; }
    virtual void push_back(WO* object) { woList.push_back(object); }
    /** Removes the first entry equal to `object`, keeping the order; says whether there was one. */
    virtual bool eraseViaWO(WO* object);
    virtual void clear() { woList.clear(); }
    /**
     * Calls `work(WO&)` for every object in order and adds the time it took to that field of the object's
     * record. An object may leave the list, and die, while it works.
     */
    template <class Work>
    void forEachTimed(Stopwatch stopwatch, std::int32_t ObjectTimes::*field, Work&& work) {
        for (std::size_t i = 0; i < size(); ++i) {
            WO* const object = at(i);
            ManagerSDLTime::startStopwatch(stopwatch);
            work(*object);
            if (i < size() && at(i) == object) {
                timesOf(*object).*field += ManagerSDLTime::readStopwatch(stopwatch);
            }
        }
    }

    /** Draws all objects in order. */
    virtual void render(Camera* camera);
    virtual bool contains(const WO* object) const;
    /** The entry with this id, null when there is none. */
    virtual WO* getWOByID(std::uint32_t id) const;

private:
    static ObjectTimes& timesOf(const WO& object);

    std::vector<WO*> woList;
};

} // namespace Vantrel
