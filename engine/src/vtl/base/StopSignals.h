#pragma once

namespace Vantrel {

/** INT and TERM ask the process to stop; whoever runs the main loop asks whether one has come. */
class StopSignals {
public:
    /** Catches both signals from now on. Main thread. */
    static void install();
    /** True once for any number of signals since the last call. */
    static bool take();
    /** True when one has come that nobody has taken yet. Any thread. */
    static bool isPending();
    /** Waits until a file descriptor has something to read, or its end. False when a signal has come instead.
     */
    static bool waitForInput(int descriptor);
};

} // namespace Vantrel
