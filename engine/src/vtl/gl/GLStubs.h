#pragma once

namespace Vantrel {

/**
 * Gives each entry point that classes call without asking, and that the driver lacks, a replacement that is
 * safe to call, and reports what is missing. May be run again.
 */
void stubMissingGLFunctions();

/** True when the driver itself has the debug callback. */
bool isGLDebugMessageCallbackReal();

} // namespace Vantrel
