#pragma once

#include "vtl/net/NetMsg.h"

#include <cstddef>
#include <memory>
#include <mutex>
#include <vector>

namespace Vantrel {

class NetMessengerServerSession;

/** Messages of one origin, in the order in which their frames came. */
struct ArrivedMessages {
    /** Where replies go; kept alive until the messages are gone. Null for UDP. */
    std::shared_ptr<NetMessengerServerSession> session;
    std::vector<std::unique_ptr<NetMsg>> messages;
    /** What the messages count for against the queue's limit. */
    std::size_t bytes = 0;
};

/**
 * The one road of messages from the network worker to the main thread, in order of arrival. Any thread.
 *
 * The queue holds whatever is pushed, and tells the worker when it is over its limit, so that the worker
 * stops reading until the main thread has drained it.
 */
class NetMessengerMessageQueue {
public:
    explicit NetMessengerMessageQueue(std::size_t mostBytes) : limit(mostBytes) {}
    NetMessengerMessageQueue(const NetMessengerMessageQueue&) = delete;
    NetMessengerMessageQueue& operator=(const NetMessengerMessageQueue&) = delete;
    ~NetMessengerMessageQueue();

    /** Appends and says whether the queue is over its limit now: then the next drain answers `wasOverLimit`.
     */
    [[nodiscard]] bool push(ArrivedMessages arrived);

    struct Drained {
        std::vector<ArrivedMessages> arrived;
        bool wasOverLimit = false;
    };
    /** Takes everything. */
    Drained drain();

private:
    std::mutex mutex;
    std::vector<ArrivedMessages> queue;
    std::size_t queuedBytes = 0;
    std::size_t limit;
};

} // namespace Vantrel
