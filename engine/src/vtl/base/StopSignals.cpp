#include "vtl/base/StopSignals.h"

#include <csignal>

namespace Vantrel {
namespace {

volatile std::sig_atomic_t signalled = 0;

void onSignal(int /*number*/) {
    signalled = 1;
}

} // namespace

void StopSignals::install() {
    struct sigaction action = {};
    action.sa_handler = onSignal;
    ::sigemptyset(&action.sa_mask);
    // No SA_RESTART: a read that waits for a key must end.
    ::sigaction(SIGINT, &action, nullptr);
    ::sigaction(SIGTERM, &action, nullptr);
}

bool StopSignals::take() {
    const bool wasSignalled = signalled != 0;
    signalled = 0;
    return wasSignalled;
}

} // namespace Vantrel
