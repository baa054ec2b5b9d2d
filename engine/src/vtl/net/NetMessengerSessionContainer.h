#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <vector>

namespace Vantrel {

class NetMessengerServerSession;

/**
 * Every accepted session. The network worker's alone; after the worker has stopped, its owner's.
 *
 * A session whose reading has ended keeps its socket, so that a peer that closed its own side still gets its
 * replies; of those only the latest are kept.
 */
class NetMessengerSessionContainer {
public:
    using SessionPointer = std::shared_ptr<NetMessengerServerSession>;

    static constexpr std::size_t endedSessionsAtMost = 256;

    void add(SessionPointer session) { reading.push_back(std::move(session)); }
    /** Takes note that a session reads no more; past the limit the session that ended first is closed. */
    void end(const SessionPointer& session);
    /** Closes the session that ended first, to have its descriptor back; false when none has ended. */
    bool closeOldestEnded();

    /** Takes note of a receiver that stopped because the queue is over its limit, and of how it goes on. */
    void waitForDrain(std::function<void()> goOn) { waiting.push_back(std::move(goOn)); }
    /** The queue has been drained: whoever waited for that goes on. */
    void resumeWaiting();

private:
    std::vector<SessionPointer> reading;
    std::deque<SessionPointer> ended;
    std::vector<std::function<void()>> waiting;
};

} // namespace Vantrel
