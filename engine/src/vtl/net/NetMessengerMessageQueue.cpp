#include "vtl/net/NetMessengerMessageQueue.h"

#include <utility>

namespace Vantrel {

NetMessengerMessageQueue::~NetMessengerMessageQueue() = default;

bool NetMessengerMessageQueue::push(ArrivedMessages arrived) {
    const std::scoped_lock lock(mutex);
    queuedBytes += arrived.bytes;
    queue.push_back(std::move(arrived));
    return queuedBytes > limit;
}

NetMessengerMessageQueue::Drained NetMessengerMessageQueue::drain() {
    const std::scoped_lock lock(mutex);
    return {std::exchange(queue, {}), std::exchange(queuedBytes, 0) > limit};
}

} // namespace Vantrel
