#include "vtl/net/NetMsgGeneric.h"

namespace Vantrel {

void NetMsgGeneric::onMessageArrived() {
    Report() << "ERROR: NetMsgGeneric::onMessageArrived() should not be called,\n"
             << "   a non generic message should be created from the string within the ...\n";
}

} // namespace Vantrel
