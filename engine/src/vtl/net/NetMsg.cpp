#include "vtl/net/NetMsg.h"

#include "vtl/base/Report.h"
#include "vtl/net/ManagerSerializableNetMsgMap.h"
#include "vtl/net/NetMessengerServerSession.h"
#include "vtl/net/NetMessengerStreamBuffer.h"

namespace Vantrel {

std::string NetMsg::getMessageType() const {
    return "NetMsg";
}

std::uint32_t NetMsg::getNetMsgID() const {
    return ManagerSerializableNetMsgMap::getNetMsgID(getMessageType());
}

bool NetMsg::toStream(NetMessengerStreamBuffer& buffer) const {
    constexpr std::uint32_t lengthPlaceholder = 1;
    buffer << getNetMsgID() << lengthPlaceholder;
    toStreamBody(buffer);
    buffer.fixFrameLength();
    return true;
}

bool NetMsg::toStreamBody(NetMessengerStreamBuffer& /*buffer*/) const {
    return true;
}

bool NetMsg::fromStream(NetMessengerStreamBuffer& /*buffer*/) {
    return true;
}

void NetMsg::onMessageArrived() {
}

std::string NetMsg::toString() const {
    ReportText text;
    text << "NetMsg:\n   Specific Subclass is: '" << getMessageType() << "', NetMsgID is " << getNetMsgID()
         << "\n";
    return text.str();
}

bool NetMsg::sendReply(const NetMsg& reply) const {
    if (session == nullptr) {
        return false;
    }
    session->sendMsg(reply);
    return true;
}

} // namespace Vantrel
