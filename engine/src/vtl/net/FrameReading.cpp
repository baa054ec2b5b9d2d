#include "vtl/net/FrameReading.h"

#include "vtl/base/Report.h"
#include "vtl/net/ManagerSerializableNetMsgMap.h"

#include <exception>
#include <string>

namespace Vantrel {

std::unique_ptr<NetMsg> readFrameBody(const char* receiver, std::uint32_t messageID,
                                      NetMessengerStreamBuffer& stream) {
    std::unique_ptr<NetMsg> message;
    try {
        message = ManagerSerializableNetMsgMap::createInstance(messageID, stream);
    } catch (const std::exception& failure) {
        Report() << "Exception: " << failure.what() << "\n";
    }
    if (message == nullptr) {
        reportBadHeader(receiver, stream);
    }
    return message;
}

void reportBadHeader(const char* receiver, const NetMessengerStreamBuffer& stream) {
    Reports::writeInPieces([&](const Reports::Writer& write) {
        write(receiver +
              std::string("::onRecvBody()... Received bad header info... Server state may be corrupt...\n"
                          "received byte data is: "));
        stream.dump(write);
        write("\n");
    });
}

} // namespace Vantrel
