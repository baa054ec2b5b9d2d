#pragma once

#include "vtl/base/Report.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string_view>

namespace Vantrel::Fuzzing {

/** Ends the run as a finding when something that must hold doesn't. */
inline void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/** What a target is given, read from its start: options first, then the bytes under test. */
class FuzzInput {
public:
    FuzzInput(const std::uint8_t* data, std::size_t size) : bytes(std::as_bytes(std::span(data, size))) {}

    /** The next option, 0 behind the end. */
    std::size_t option() {
        if (bytes.empty()) {
            return 0;
        }
        const auto value = std::to_integer<std::size_t>(bytes.front());
        bytes = bytes.subspan(1);
        return value;
    }
    std::span<const std::byte> rest() const { return bytes; }
    /** The same as characters. */
    std::string_view text() const { return {reinterpret_cast<const char*>(bytes.data()), bytes.size()}; }

private:
    std::span<const std::byte> bytes;
};

/** Lets reports go nowhere; a static one of these does it before the first input. */
struct SilentReports {
    SilentReports() {
        Reports::open([](std::string_view) {});
    }
};

} // namespace Vantrel::Fuzzing
