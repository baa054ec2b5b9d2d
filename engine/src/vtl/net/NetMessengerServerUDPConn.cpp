#include "vtl/net/NetMessengerServerUDPConn.h"

#include "vtl/base/Report.h"
#include "vtl/net/ManagerSerializableNetMsgMap.h"
#include "vtl/net/NetMessengerMessageQueue.h"
#include "vtl/net/NetMessengerStreamBuffer.h"
#include "vtl/net/NetMsg.h"

#include <boost/asio/buffer.hpp>
#include <exception>
#include <utility>

namespace Vantrel {

using boost::system::error_code;

std::unique_ptr<NetMsg> readDatagram(std::span<std::byte> bytes) {
    NetMessengerStreamBuffer stream(bytes);
    std::uint32_t messageID = 0;
    std::uint32_t bodyLength = 0; // the datagram's end is what counts
    stream >> messageID >> bodyLength;
    std::unique_ptr<NetMsg> message;
    constexpr std::size_t headerSize = 8;
    try {
        if (bytes.size() >= headerSize) {
            message = ManagerSerializableNetMsgMap::createInstance(messageID, stream);
        }
    } catch (const std::exception& failure) {
        Report() << "Exception: " << failure.what() << "\n";
    }
    if (message == nullptr) {
        Report()
            << "NetMessengerServerUDPConn::onRecvBody()... Received bad header info... Server state may be "
               "corrupt...\n"
            << "received byte data is: " << stream.toString() << "\n";
    }
    return message;
}

NetMessengerServerUDPConn::NetMessengerServerUDPConn(boost::asio::io_context& service,
                                                     const boost::asio::ip::udp::endpoint& endpoint,
                                                     NetMessengerMessageQueue& inbound)
    : socket(service, endpoint)
    , receiveBlock(std::make_unique_for_overwrite<std::byte[]>(largestDatagram))
    , inboundQueue(inbound) {
    if (!socket.is_open()) {
        Report() << "UDP Socket failed to open...\n";
    }
}

void NetMessengerServerUDPConn::start() {
    socket.async_receive_from(
        boost::asio::buffer(receiveBlock.get(), largestDatagram), sender,
        [this](const error_code& error, std::size_t count) { onRecvDatagram(error, count); });
}

void NetMessengerServerUDPConn::onRecvDatagram(const error_code& error, std::size_t count) {
    if (error == boost::asio::error::operation_aborted) {
        return;
    }
    if (!error && count > 0) {
        if (std::unique_ptr<NetMsg> message = readDatagram(std::span(receiveBlock.get(), count))) {
            ArrivedMessages arrived{.session = nullptr, .messages = {}, .bytes = count};
            arrived.messages.push_back(std::move(message));
            // Datagrams that come faster than they are drained are the kernel's to drop.
            static_cast<void>(inboundQueue.push(std::move(arrived)));
        }
    } else if (!error || error == boost::asio::error::message_size) {
        Report() << "ERROR: NetMessengerServerUDPConn::onRecvDatagram(...):\n"
                 << "   " << error.category().name() << ": " << error.value() << "\n";
    }
    start();
}

} // namespace Vantrel
