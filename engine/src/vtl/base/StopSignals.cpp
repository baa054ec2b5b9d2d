#include "vtl/base/StopSignals.h"

#include <atomic>
#include <csignal>
#include <poll.h>

namespace Vantrel {
namespace {

// A handler may run on any thread that doesn't block the signal.
std::atomic<bool> signalled = false;
static_assert(std::atomic<bool>::is_always_lock_free);

void onSignal(int /*number*/) {
    signalled = true;
}

} // namespace

void StopSignals::install() {
    struct sigaction action = {};
    action.sa_handler = onSignal;
    ::sigemptyset(&action.sa_mask);
    ::sigaction(SIGINT, &action, nullptr);
    ::sigaction(SIGTERM, &action, nullptr);
}

bool StopSignals::take() {
    return signalled.exchange(false);
}

bool StopSignals::isPending() {
    return signalled;
}

bool StopSignals::waitForInput(int descriptor) {
    sigset_t stopping;
    ::sigemptyset(&stopping);
    ::sigaddset(&stopping, SIGINT);
    ::sigaddset(&stopping, SIGTERM);
    sigset_t before;
    // Blocked but for the wait itself, so that none can slip in between the question and the wait.
    ::pthread_sigmask(SIG_BLOCK, &stopping, &before);
    pollfd input{.fd = descriptor, .events = POLLIN, .revents = 0};
    const bool isReadable = !signalled && ::ppoll(&input, 1, nullptr, &before) > 0;
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    return isReadable;
}

} // namespace Vantrel
