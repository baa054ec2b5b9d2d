#include "vtl/shell/NetMsgShutdownInstance.h"

#include "vtl/net/ManagerSerializableNetMsgMap.h"
#include "vtl/shell/StopRequests.h"

namespace Vantrel {
namespace {

const NetMsgRegistration<NetMsgShutdownInstance> registration;

} // namespace

bool NetMsgShutdownInstance::fromStream(NetMessengerStreamBuffer& /*buffer*/) {
    stopRequests().requestShutdown();
    return true;
}

void NetMsgShutdownInstance::onMessageArrived() {
    Report() << "Message has arrived... " << toString() << "\n";
}

} // namespace Vantrel
