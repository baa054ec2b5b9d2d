#pragma once

#include "vtl/scene/object/WOObserver.h"

#include <cstddef>
#include <vector>

namespace Vantrel {

/**
 * An ordered array of world objects, null entries included. It owns none of them; one that dies leaves it.
 */
class WorldObjectContainer : private WOObserver {
public:
    WorldObjectContainer() = default;
    WorldObjectContainer(const WorldObjectContainer&) = delete;
    WorldObjectContainer& operator=(const WorldObjectContainer&) = delete;
    virtual ~WorldObjectContainer();

    virtual std::size_t size() const { return objects.size(); }
    virtual std::size_t max_size() const { return 0x3FFFFFFF; }
    /** Grows with null entries or drops the last ones. */
    virtual void resize(std::size_t count);
    virtual std::size_t capacity() const { return objects.capacity(); }
    virtual bool empty() const { return objects.empty(); }
    virtual void reserve(std::size_t count) { objects.reserve(count); }
    /** Entry `i`, which must be below `size()`. */
    virtual WO* at(std::size_t i) const { return objects[i]; }
    virtual WO* operator[](std::size_t i) const { return objects[i]; }
    virtual void push_back(WO* object);
    /** Drops the last entry; there must be one. */
    virtual void pop_back() { resize(size() - 1); }
    virtual void clear() { resize(0); }
    /** Removes the first entry equal to `object`, keeping the order; says whether there was one. */
    virtual bool eraseViaWO(WO* object);
    /** Removes entry `index`, keeping the order; one out of bounds is reported and answered with false. */
    virtual bool eraseViaWOIndex(std::size_t index);

protected:
    /** Reports an index out of bounds as the class of that name. */
    bool eraseAt(std::size_t index, const char* className);

private:
    void onWODestroyed(const WO& object) override;

    std::vector<WO*> objects;
};

} // namespace Vantrel
