#pragma once

namespace Vantrel {

/** INT and TERM ask the process to stop; whoever runs the main loop asks whether one has come. */
class StopSignals {
public:
    /** Catches both signals from now on. They also interrupt a pause for a key. Main thread. */
    static void install();
    /** True once for any number of signals since the last call. */
    static bool take();
};

} // namespace Vantrel
