#include "vtl/base/Report.h"

#include "vtl/base/StopSignals.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <exception>
#include <mutex>
#include <poll.h>
#include <unistd.h>
#include <utility>

namespace Vantrel {
namespace {

constexpr std::size_t gatheredBytesAtMost = 64 * 1024;

struct State {
    std::mutex mutex;
    std::string gathered;
    Reports::Writer writer;
};

// Never destroyed: a static object's destructor may still report.
State& state() {
    static State* const only = new State;
    return *only;
}

void flushLocked(State& reports) {
    if (!reports.writer || reports.gathered.empty()) {
        return;
    }
    reports.writer(reports.gathered);
    reports.gathered.clear();
    constexpr std::size_t keptAtMost = 4 * gatheredBytesAtMost;
    if (reports.gathered.capacity() > keptAtMost) {
        reports.gathered.shrink_to_fit();
    }
}

void appendLocked(State& reports, std::string_view text) {
    reports.gathered.append(text);
    if (reports.gathered.size() > gatheredBytesAtMost) {
        flushLocked(reports);
    }
}

/** Waits until standard output takes bytes; false when a stop signal makes waiting pointless. */
bool waitForStandardOutput() {
    constexpr int patienceMs = 100;
    // Once a reader is given up, its pipe is only looked at, so that the end of the process isn't held up
    // again.
    static bool isGivenUp = false;
    pollfd output{.fd = STDOUT_FILENO, .events = POLLOUT, .revents = 0};
    while (::poll(&output, 1, isGivenUp ? 0 : patienceMs) <= 0) {
        if (isGivenUp || StopSignals::isPending()) {
            isGivenUp = true;
            return false;
        }
    }
    isGivenUp = false;
    return true;
}

void writeToStandardOutput(std::string_view bytes) {
    while (!bytes.empty() && waitForStandardOutput()) {
        // What a pipe takes without blocking once it takes anything.
        const ssize_t written =
            ::write(STDOUT_FILENO, bytes.data(), std::min<std::size_t>(bytes.size(), PIPE_BUF));
        if (written > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno != EINTR && errno != EAGAIN) {
            return;
        }
    }
}

} // namespace

ReportText& ReportText::operator<<(Hexadecimal number) {
    char digits[20];
    constexpr int base = 16;
    return *this << std::string_view(digits, std::to_chars(digits, std::end(digits), number.value, base).ptr);
}

ReportText& ReportText::operator<<(const void* address) {
    if (address == nullptr) {
        return *this << '0';
    }
    return *this << "0x" << Hexadecimal{reinterpret_cast<std::uintptr_t>(address)};
}

Report::~Report() {
    try {
        Reports::write(str());
    } catch (const std::exception&) {
        // Without memory for a report there is none for saying so either.
    }
}

void Reports::open() {
    open(writeToStandardOutput);
}

void Reports::open(Writer writer) {
    State& reports = state();
    const std::scoped_lock lock(reports.mutex);
    reports.writer = std::move(writer);
}

void Reports::write(std::string_view text) {
    State& reports = state();
    const std::scoped_lock lock(reports.mutex);
    appendLocked(reports, text);
}

void Reports::writeInPieces(const std::function<void(const Writer&)>& produce) {
    State& reports = state();
    const std::scoped_lock lock(reports.mutex);
    produce([&reports](std::string_view piece) { appendLocked(reports, piece); });
}

void Reports::flush() {
    State& reports = state();
    const std::scoped_lock lock(reports.mutex);
    flushLocked(reports);
}

bool Reports::isOpen() {
    State& reports = state();
    const std::scoped_lock lock(reports.mutex);
    return static_cast<bool>(reports.writer);
}

} // namespace Vantrel
