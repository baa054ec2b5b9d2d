#pragma once

#include <csignal>
#include <pthread.h>

namespace Vantrel {

/** While it lives, threads that are started leave every signal to the threads that were there before. */
class ScopedSignalsBlocked {
public:
    ScopedSignalsBlocked() {
        sigset_t all;
        ::sigfillset(&all);
        ::pthread_sigmask(SIG_BLOCK, &all, &previous);
    }
    ScopedSignalsBlocked(const ScopedSignalsBlocked&) = delete;
    ScopedSignalsBlocked& operator=(const ScopedSignalsBlocked&) = delete;
    ~ScopedSignalsBlocked() { ::pthread_sigmask(SIG_SETMASK, &previous, nullptr); }

private:
    sigset_t previous{};
};

} // namespace Vantrel
