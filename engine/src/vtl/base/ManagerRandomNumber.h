#pragma once

namespace Vantrel {

/** Seeds and uses the C library's pseudo-random generator. Main thread. */
class ManagerRandomNumber {
public:
    /** Seeds from the clock or from the number under the key `randomnumberseedsource`, and reports the seed.
     */
    static void init();

    /**
     * A number from `lo` to `hi`, both included, for a `lo` of 0 or more. A negative `lo` adds a sign flip by
     * a second draw, so that such a range is neither even nor bounded by `lo`.
     */
    static int getRandomInt(int lo, int hi);
};

} // namespace Vantrel
