#include "vtl/net/NetMessengerServerUDPConn.h"

#include "vtl/base/Report.h"
#include "vtl/net/FrameReading.h"
#include "vtl/net/NetMessengerMessageQueue.h"
#include "vtl/net/NetMessengerSessionContainer.h"

#include <boost/asio/buffer.hpp>
#include <exception>
#include <utility>

namespace Vantrel {

using boost::system::error_code;

namespace {

constexpr const char* receiverName = "NetMessengerServerUDPConn";

/** A datagram comes alone, and so costs an entry of the queue of its own beyond what a message does. */
constexpr std::size_t bytesPerDatagram = queuedBytesPerMessage + sizeof(ArrivedMessages) + 64;

} // namespace

std::unique_ptr<NetMsg> readDatagram(std::span<std::byte> bytes) {
    NetMessengerStreamBuffer stream(bytes);
    std::uint32_t messageID = 0;
    std::uint32_t bodyLength = 0; // the datagram's end is what counts
    stream >> messageID >> bodyLength;
    constexpr std::size_t headerSize = 8;
    if (bytes.size() < headerSize) {
        reportBadHeader(receiverName, stream);
        return nullptr;
    }
    return readFrameBody(receiverName, messageID, stream);
}

NetMessengerServerUDPConn::NetMessengerServerUDPConn(boost::asio::io_context& service,
                                                     const boost::asio::ip::udp::endpoint& endpoint,
                                                     NetMessengerSessionContainer& container,
                                                     NetMessengerMessageQueue& inbound)
    : socket(service, endpoint)
    , receiveBlock(std::make_unique_for_overwrite<std::byte[]>(largestDatagram))
    , sessions(container)
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
    bool queueHasRoom = true;
    try {
        if (!error && count > 0) {
            queueHasRoom = deliver(std::span(receiveBlock.get(), count));
        } else if (!error || error == boost::asio::error::message_size) {
            Report() << "ERROR: NetMessengerServerUDPConn::onRecvDatagram(...):\n"
                     << "   " << error.category().name() << ": " << error.value() << "\n";
        }
    } catch (const std::exception& failure) {
        reportException(failure);
    }
    if (queueHasRoom) {
        start();
    } else {
        // What comes meanwhile is the kernel's to keep or to drop.
        sessions.waitForDrain([this] { start(); });
    }
}

bool NetMessengerServerUDPConn::deliver(std::span<std::byte> datagram) {
    std::unique_ptr<NetMsg> message = readDatagram(datagram);
    if (message == nullptr) {
        return true;
    }
    ArrivedMessages arrived{.session = nullptr, .messages = {}, .bytes = datagram.size() + bytesPerDatagram};
    arrived.messages.push_back(std::move(message));
    return !inboundQueue.push(std::move(arrived));
}

} // namespace Vantrel
