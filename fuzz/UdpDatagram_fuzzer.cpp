// A datagram: at most one message, none from less than a header, and whatever is missing at its end is only
// reported.
//
// Input: the datagram.

#include "fuzz/EngineMessages.h"
#include "fuzz/FuzzInput.h"
#include "vtl/net/NetMessengerServerUDPConn.h"

#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace Vantrel;
    const std::span<const std::byte> input = Fuzzing::FuzzInput(data, size).rest();
    std::vector<std::byte> datagram(input.begin(), input.end());
    const std::unique_ptr<NetMsg> message = readDatagram(datagram);
    if (message != nullptr) {
        constexpr std::size_t headerSize = 8;
        Fuzzing::require(size >= headerSize && !message->sendReply(*message));
        Fuzzing::checkMessage(*message);
        message->onMessageArrived();
    }
    return 0;
}
