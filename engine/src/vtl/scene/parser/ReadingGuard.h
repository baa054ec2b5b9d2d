#pragma once

#include "vtl/base/Pause.h"
#include "vtl/base/Report.h"

#include <exception>
#include <string_view>

namespace Vantrel {

/** What `read` gives; where it throws, whatever it is, that is reported and the process ends after a key. */
template <class Read>
auto readOrExit(Read read) {
    const auto tell = [](std::string_view what, const std::exception& exception) {
        const std::string_view text = exception.what() != nullptr ? exception.what() : "";
        Report() << what << "\n" << (text.empty() ? "Unknown exception" : text) << "\n";
    };
    try {
        return read();
    } catch (const std::exception& exception) {
        tell("Exception thrown!", exception);
    } catch (const std::exception* exception) {
        tell("Exception* thrown!", *exception);
    } catch (...) {
        Report() << "Non-exception thrown\n";
    }
    Pause::exitAfterKey();
}

} // namespace Vantrel
