#include "fuzz/EngineMessages.h"

#include "fuzz/FuzzInput.h"
#include "vtl/net/EngineMessageLayouts.h"
#include "vtl/net/ManagerSerializableNetMsgMap.h"

#include <vector>

namespace Vantrel::Fuzzing {
namespace {

const NetMsgRegistration<NetMsgWithLayout<CreateWOLayout>> createWORegistration;
const NetMsgRegistration<NetMsgWithLayout<CreateWOReplyLayout>> createWOReplyRegistration;
const NetMsgRegistration<NetMsgWithLayout<ShutdownInstanceLayout>> shutdownInstanceRegistration;
const SilentReports silentReports;

} // namespace

void checkMessage(const NetMsg& message) {
    const std::string text = message.toString();
    require(message.getNetMsgID() == netMsgIDOf(message.getMessageType()));
    if (message.getMessageType() == GenericLayout::name) {
        return; // its frame names another class
    }
    NetMessengerStreamBuffer written;
    require(message.toStream(written));
    constexpr std::size_t headerSize = 8;
    std::vector<std::byte> body(written.data() + headerSize, written.data() + written.length());
    require(wireUnsigned(written.data() + 4) == body.size());
    NetMessengerStreamBuffer read(body);
    const auto again = ManagerSerializableNetMsgMap::createInstance(message.getNetMsgID(), read);
    require(again != nullptr && again->toString() == text && read.remaining() == 0);
}

} // namespace Vantrel::Fuzzing
