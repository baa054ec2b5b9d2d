#pragma once

#include "vtl/base/Report.h"

#include <iostream>
#include <mutex>
#include <string>

namespace Vantrel::Tests {

/** For the child of a death test: its parent reads the error output. */
inline void reportToErrorOutput() {
    Reports::open([](std::string_view text) { std::cerr << text; });
}

/** Gathers what is reported while it lives. One at a time; before and after, reports of a test go nowhere. */
class ReportCapture {
public:
    ReportCapture() {
        Reports::open([](std::string_view) {});
        Reports::flush();
        Reports::open([this](std::string_view text) {
            const std::scoped_lock lock(mutex);
            gathered.append(text);
        });
    }
    ReportCapture(const ReportCapture&) = delete;
    ReportCapture& operator=(const ReportCapture&) = delete;
    ~ReportCapture() {
        Reports::flush();
        Reports::open([](std::string_view) {});
    }

    /** Everything reported so far, by any thread. */
    std::string text() const {
        Reports::flush();
        const std::scoped_lock lock(mutex);
        return gathered;
    }

    void clear() {
        Reports::flush();
        const std::scoped_lock lock(mutex);
        gathered.clear();
    }

    bool contains(std::string_view piece) const { return text().find(piece) != std::string::npos; }

    /** How often `piece` has been reported. */
    std::size_t count(std::string_view piece) const {
        const std::string all = text();
        std::size_t found = 0;
        for (std::size_t at = 0; (at = all.find(piece, at)) != std::string::npos; at += piece.size()) {
            ++found;
        }
        return found;
    }

private:
    mutable std::mutex mutex;
    std::string gathered;
};

} // namespace Vantrel::Tests
