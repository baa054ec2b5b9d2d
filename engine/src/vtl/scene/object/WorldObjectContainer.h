#pragma once

#include "vtl/scene/object/ObjectList.h"
#include "vtl/scene/object/WOObserver.h"

#include <cstddef>
#include <utility>
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

    bool contains(const WO* object) const { return ObjectList::find(objects, object).has_value(); }
    /** Calls `act(WO&)` for every entry that isn't null. Entries may go and die meanwhile, and so may the
     * list.
     */
    template <class Act>
    void forEach(Act&& act) const {
        Walk walk(*this);
        for (std::size_t i = 0; i < objects.size();) {
            WO* const object = objects[i];
            if (object != nullptr) {
                act(*object);
                if (walk.isListGone) {
                    return;
                }
            }
            i = ObjectList::stepOn(objects, i, object).next;
        }
    }

protected:
    /** Reports an index out of bounds as the class of that name. */
    bool eraseAt(std::size_t index, const char* className);

private:
    /** Learns of the end of the list that it goes through. */
    struct Walk {
        explicit Walk(const WorldObjectContainer& walked)
            : list(walked), outer(std::exchange(walked.currentWalk, this)) {}
        Walk(const Walk&) = delete;
        Walk& operator=(const Walk&) = delete;
        ~Walk() {
            if (!isListGone) {
                list.currentWalk = outer;
            } else if (outer != nullptr) {
                outer->isListGone = true;
            }
        }

        const WorldObjectContainer& list;
        Walk* outer;
        bool isListGone = false;
    };

    void onWODestroyed(const WO& object) override;

    std::vector<WO*> objects;
    mutable Walk* currentWalk = nullptr;
};

} // namespace Vantrel
