#pragma once

namespace Vantrel {

class WO;

/**
 * Whoever keeps a plain pointer to a world object across frames, and so must let go of it when it dies.
 * Main thread.
 */
class WOObserver {
public:
    /** `object` is being destroyed: only its address counts any more. The observer has been removed. */
    virtual void onWODestroyed(const WO& object) = 0;

protected:
    ~WOObserver() = default;
};

} // namespace Vantrel
