#include "vtl/base/Pause.h"

#include "vtl/base/Report.h"
#include "vtl/base/StopSignals.h"

#include <cstdlib>
#include <unistd.h>
#include <utility>

namespace Vantrel {
namespace {

void readKey() {
    char key = 0;
    if (StopSignals::waitForInput(STDIN_FILENO)) {
        [[maybe_unused]] const ssize_t answer =
            ::read(STDIN_FILENO, &key, 1); // the end of the input will do as well
    }
}

Pause::KeySource keySource = readKey;
Pause::LastDuty lastDuty = nullptr;

} // namespace

void Pause::waitForKey() {
    if (!Reports::isOpen()) {
        Reports::open();
    }
    Reports::flush();
    keySource();
}

void Pause::exitAfterKey(int exitCode) {
    waitForKey();
    exitNow(exitCode);
}

void Pause::exitNow(int exitCode) {
    Reports::flush();
    if (const LastDuty duty = std::exchange(lastDuty, nullptr)) {
        duty();
        Reports::flush();
    }
    // Not exit(): the network thread may be running, and static objects must not go from under it.
    std::_Exit(exitCode);
}

void Pause::setLastDuty(LastDuty duty) {
    lastDuty = duty;
}

void Pause::setKeySource(KeySource source) {
    keySource = source != nullptr ? source : readKey;
}

} // namespace Vantrel
