#pragma once

#include "vtl/scene/object/WOObserver.h"

namespace Vantrel {

/**
 * A pointer to a world object that becomes null when the object dies. `T` must be complete where it is set.
 * Main thread.
 */
template <class T>
class WORef final : private WOObserver {
public:
    WORef() = default;
    explicit WORef(T* target) { set(target); }
    WORef(const WORef& other) : WOObserver(), object(nullptr) { set(other.object); }
    WORef& operator=(const WORef& other) {
        set(other.object);
        return *this;
    }
    WORef& operator=(T* target) {
        set(target);
        return *this;
    }
    ~WORef() { set(nullptr); }

    T* get() const { return object; }
    T* operator->() const { return object; }
    T& operator*() const { return *object; }
    explicit operator bool() const { return object != nullptr; }

private:
    void set(T* target) {
        if (target == object) {
            return;
        }
        if (object != nullptr) {
            object->removeObserver(*this);
        }
        object = target;
        if (object != nullptr) {
            object->addObserver(*this);
        }
    }
    void onWODestroyed(const WO& /*destroyed*/) override { object = nullptr; }

    T* object = nullptr;
};

} // namespace Vantrel
