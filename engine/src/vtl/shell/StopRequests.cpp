#include "vtl/shell/StopRequests.h"

#include "vtl/base/Report.h"

namespace Vantrel {

void StopRequests::requestShutdown() {
    Report() << "User invoked vtlShutdownEngine()...\n"
             << "   Shutting down after the current main loop iteration completes...\n";
    shutdownRequested = true;
}

void StopRequests::requestReset() {
    Report() << "User invoked vtlResetEngine()...\n"
             << "   Resetting Engine after the current main loop iteration completes...\n";
    resetRequested = true;
}

void StopRequests::clear() {
    shutdownRequested = false;
    resetRequested = false;
}

StopRequests& stopRequests() {
    static constinit StopRequests only;
    return only;
}

} // namespace Vantrel
