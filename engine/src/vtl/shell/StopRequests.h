#pragma once

#include <atomic>

namespace Vantrel {

/**
 * The two wishes that end a main loop after its frame. They stand outside of the application object, so that
 * the network worker can raise one at any moment of that object's life. Any thread.
 */
struct StopRequests {
    std::atomic<bool> shutdownRequested = false;
    std::atomic<bool> resetRequested = false;

    /** Asks for the end of the process, and reports it. */
    void requestShutdown();
    /** Asks for a new start within the process, and reports it. */
    void requestReset();
    void clear();
};

/** The process's one pair. */
StopRequests& stopRequests();

} // namespace Vantrel
