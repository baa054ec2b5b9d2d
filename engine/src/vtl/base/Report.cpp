#include "vtl/base/Report.h"

#include <cerrno>
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
    if (reports.writer && !reports.gathered.empty()) {
        reports.writer(reports.gathered);
        reports.gathered.clear();
    }
}

void writeToStandardOutput(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(STDOUT_FILENO, bytes.data(), bytes.size());
        if (written > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno == EAGAIN) {
            pollfd output{.fd = STDOUT_FILENO, .events = POLLOUT, .revents = 0};
            ::poll(&output, 1, -1);
        } else if (errno != EINTR) {
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
    Reports::write(str());
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
    reports.gathered.append(text);
    if (reports.gathered.size() > gatheredBytesAtMost) {
        flushLocked(reports);
    }
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
