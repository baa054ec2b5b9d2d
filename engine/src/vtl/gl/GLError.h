#pragma once

#include "vtl/base/SourceLocation.h"

#include <cstdint>

namespace Vantrel {

class ReportedObject;

/**
 * Takes all pending errors from GL and reports each with `code`, the caller's choice to find its call site in
 * the log, and with the object that was being drawn, if any. Returns how many it reported. Safe without a
 * context.
 */
std::uint32_t checkGLError(std::int32_t code, const ReportedObject* object = nullptr,
                           SourceLocation where = SourceLocation::current());

/**
 * The same with the errors of `nextError`, which answers 0 when there is none. The second
 * GL_INVALID_OPERATION ends it too: GL may answer that for ever where no context is current.
 */
std::uint32_t reportGLErrors(std::uint32_t (*nextError)(), std::int32_t code, const ReportedObject* object,
                             SourceLocation where);

/** Whether `checkGLErrorOfDraw` asks GL; set while a person debugs, as the GL debug callback is. */
inline bool areGLErrorsOfDrawsChecked = false;

/** `checkGLError` for what runs for every object of every frame, where asking GL each time would be felt. */
inline void checkGLErrorOfDraw(std::int32_t code, SourceLocation where = SourceLocation::current()) {
    if (areGLErrorsOfDrawsChecked) {
        checkGLError(code, nullptr, where);
    }
}

} // namespace Vantrel
