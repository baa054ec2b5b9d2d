#include "vtl/net/NetMessengerSessionContainer.h"

#include "vtl/net/NetMessengerServerSession.h"

#include <utility>

namespace Vantrel {

void NetMessengerSessionContainer::end(const SessionPointer& session) {
    std::erase(reading, session);
    ended.push_back(session);
    if (ended.size() > endedSessionsAtMost) {
        closeOldestEnded();
    }
}

bool NetMessengerSessionContainer::closeOldestEnded() {
    if (ended.empty()) {
        return false;
    }
    ended.front()->close();
    ended.pop_front();
    return true;
}

void NetMessengerSessionContainer::resumeWaiting() {
    for (const std::function<void()>& goOn : std::exchange(waiting, {})) {
        goOn();
    }
}

} // namespace Vantrel
