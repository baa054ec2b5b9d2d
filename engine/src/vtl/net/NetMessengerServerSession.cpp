#include "vtl/net/NetMessengerServerSession.h"

#include "vtl/base/Report.h"
#include "vtl/net/ManagerSerializableNetMsgMap.h"
#include "vtl/net/NetMessengerSessionContainer.h"
#include "vtl/net/NetMsg.h"

#include <algorithm>
#include <boost/asio/post.hpp>
#include <boost/asio/write.hpp>
#include <exception>
#include <utility>

namespace Vantrel {
namespace {

using boost::system::error_code;

/** What a message costs beyond its body, so that a flood of empty ones is bounded too. */
constexpr std::size_t bytesPerMessage = 32;

/** Unsent replies of one session beyond which no more of its requests are read. */
constexpr std::size_t outgoingBytesAtMost = 16 * 1024 * 1024;

} // namespace

NetMessengerServerSession::NetMessengerServerSession(boost::asio::ip::tcp::socket accepted,
                                                     NetMessengerSessionContainer& container,
                                                     NetMessengerMessageQueue& inbound)
    : socket(std::move(accepted)), sessions(container), inboundQueue(inbound) {
}

void NetMessengerServerSession::start() {
    error_code ignored;
    // A reply is small and somebody waits for it.
    socket.set_option(boost::asio::ip::tcp::no_delay(true), ignored);
    readMore();
}

void NetMessengerServerSession::close() {
    error_code ignored;
    socket.close(ignored);
}

void NetMessengerServerSession::sendMsg(const NetMsg& message) {
    NetMessengerStreamBuffer buffer;
    message.toStream(buffer);
    boost::asio::post(socket.get_executor(),
                      [self = shared_from_this(), frame = buffer.releaseFrame()]() mutable {
                          self->send(std::move(frame));
                      });
}

void NetMessengerServerSession::readMore() {
    const std::span<std::byte> space = decoder.space();
    if (space.empty()) {
        Report() << "ERROR: NetMessengerServerSession::onRecvHeader(...):\n"
                 << "   Cannot allocate memory for a body of " << decoder.bodyLength() << " bytes...\n";
        endReading();
        return;
    }
    socket.async_read_some(boost::asio::buffer(space.data(), space.size()),
                           [self = shared_from_this()](const error_code& error, std::size_t count) {
                               self->onReceived(error, count);
                           });
}

void NetMessengerServerSession::onReceived(const error_code& error, std::size_t count) {
    if (error == boost::asio::error::operation_aborted) {
        return;
    }
    if (error) {
        reportReceiveError(error);
        endReading();
        return;
    }
    constexpr std::size_t likelyFrameSize = 16;
    arrived.messages.reserve(std::min(count, NetMessengerFrameDecoder::bufferSize) / likelyFrameSize + 1);
    decoder.received(count, [this](std::uint32_t id, std::span<std::byte> body) { onRecvBody(id, body); });
    if (!deliver()) {
        sessions.waitForDrain(shared_from_this());
    } else if (outgoingBytes > outgoingBytesAtMost) {
        waitsForPeer = true;
    } else {
        readMore();
    }
}

void NetMessengerServerSession::onRecvBody(std::uint32_t messageID, std::span<std::byte> body) {
    NetMessengerStreamBuffer stream(body);
    std::unique_ptr<NetMsg> message;
    try {
        message = ManagerSerializableNetMsgMap::createInstance(messageID, stream);
    } catch (const std::exception& failure) {
        Report() << "Exception: " << failure.what() << "\n";
    }
    if (message == nullptr) {
        Report()
            << "NetMessengerServerSession::onRecvBody()... Received bad header info... Server state may be "
               "corrupt...\n"
            << "received byte data is: " << stream.toString() << "\n";
        return;
    }
    message->setSession(this);
    arrived.messages.push_back(std::move(message));
    arrived.bytes += body.size() + bytesPerMessage;
}

/** Puts the messages of one read into the queue together; false when the queue is over its limit. */
bool NetMessengerServerSession::deliver() {
    if (arrived.messages.empty()) {
        return true;
    }
    arrived.session = shared_from_this();
    return !inboundQueue.push(std::exchange(arrived, {}));
}

void NetMessengerServerSession::reportReceiveError(const error_code& error) const {
    Report() << "ERROR: NetMessengerServerSession::"
             << (decoder.isAwaitingHeader() ? "onRecvHeader" : "onRecvBody") << "(...):\n"
             << "   " << error.category().name() << ": " << error.value() << "\n";
}

void NetMessengerServerSession::endReading() {
    decoder.releaseMemory(); // the session itself stays for its replies
    sessions.end(shared_from_this());
}

void NetMessengerServerSession::send(NetMessengerFrame frame) {
    outgoingBytes += frame.size;
    outgoing.push_back(std::move(frame));
    if (outgoing.size() == 1) {
        writeNext();
    }
}

void NetMessengerServerSession::writeNext() {
    const NetMessengerFrame& frame = outgoing.front();
    boost::asio::async_write(socket, boost::asio::buffer(frame.bytes.get(), frame.size),
                             [self = shared_from_this()](const error_code& error, std::size_t /*count*/) {
                                 self->onSendMsg(error);
                             });
}

void NetMessengerServerSession::onSendMsg(const error_code& error) {
    outgoingBytes -= outgoing.front().size;
    outgoing.pop_front();
    if (error) {
        Report() << "ERROR: NetMessengerServerSession::onSendMsg(...): "
                 << "NetMessengerServerSession:191"
                 << "\n"
                 << "   " << error.category().name() << ": " << error.value() << "\n";
    }
    if (!outgoing.empty()) {
        writeNext();
    }
    if (waitsForPeer && outgoingBytes <= outgoingBytesAtMost) {
        waitsForPeer = false;
        readMore();
    }
}

} // namespace Vantrel
