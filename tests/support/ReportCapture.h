#pragma once

#include "vtl/base/Report.h"

#include <mutex>
#include <string>

namespace Vantrel::Tests {

/** Gathers what is reported while it lives. One at a time; before and after, reports of a test go nowhere. */
class ReportCapture {
public:
    ReportCapture() {
        Reports::open([](std::string_view) {});
        Reports::flush();
        Reports::open([this](std::string_view text) { gathered.append(text); });
    }
    ReportCapture(const ReportCapture&) = delete;
    ReportCapture& operator=(const ReportCapture&) = delete;
    ~ReportCapture() {
        Reports::flush();
        Reports::open([](std::string_view) {});
    }

    /** Everything reported so far. Not while another thread reports. */
    std::string text() const {
        Reports::flush();
        return gathered;
    }

    void clear() {
        Reports::flush();
        gathered.clear();
    }

    bool contains(std::string_view piece) const { return text().find(piece) != std::string::npos; }

private:
    std::string gathered;
};

} // namespace Vantrel::Tests
