#pragma once

#include "vtl/base/Report.h"

#include <string>

namespace Vantrel {

/** SDL's pending error text, which is cleared by the call. */
std::string takeSDLError();

/** A line for each attribute of the framebuffer and the context, with SDL's answer to the query. */
void writeGLAttributes(ReportText& out);

/** The displays with their modes. */
void writeDisplays(ReportText& out);

} // namespace Vantrel
