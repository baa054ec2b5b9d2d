#pragma once

namespace Vantrel {

/** The pauses of the failure paths: the prompt has been reported, a person answers with a key. */
class Pause {
public:
    /** Stands in for standard input in a test. */
    using KeySource = void (*)();
    using LastDuty = void (*)();

    /**
     * Flushes the reports and waits for one character on standard input. End of file and a signal count as
     * the key, so that nothing hangs unattended.
     */
    static void waitForKey();

    /** The end of a fatal path: waits for a key, then ends the process with that exit code, whatever still
     * runs. */
    [[noreturn]] static void exitAfterKey(int exitCode = -1);
    /** The end of a fatal path that asks nobody. */
    [[noreturn]] static void exitNow(int exitCode = -1);
    /** What must be finished before a fatal path ends the process; null for nothing. Main thread. */
    static void setLastDuty(LastDuty duty);

    /** Takes keys from `source`; null goes back to standard input. Main thread. */
    static void setKeySource(KeySource source);
};

} // namespace Vantrel
