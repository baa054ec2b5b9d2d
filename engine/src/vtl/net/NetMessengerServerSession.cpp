#include "vtl/net/NetMessengerServerSession.h"

#include "vtl/base/Report.h"
#include "vtl/net/FrameReading.h"
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

/** Unsent replies of one session beyond which no more of its requests are read. */
constexpr std::size_t unsentBytesAtMost = 16 * 1024 * 1024;

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
    const std::span<const std::byte> frame = buffer.bytes();
    const std::scoped_lock lock(outgoingMutex);
    outgoing.insert(outgoing.end(), frame.begin(), frame.end());
    if (!isWriting) {
        isWriting = true;
        boost::asio::post(socket.get_executor(), [self = shared_from_this()] { self->writeOutgoing(); });
    }
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
    try {
        cutFrames(count);
        goOn(deliver());
    } catch (const std::exception& failure) {
        // Without memory the stream's place in its frames is lost.
        reportException(failure);
        endReading();
    }
}

void NetMessengerServerSession::cutFrames(std::size_t count) {
    constexpr std::size_t likelyFrameSize = 16;
    arrived.messages.reserve(std::min(count, NetMessengerFrameDecoder::bufferSize) / likelyFrameSize + 1);
    decoder.received(count, [this](std::uint32_t id, std::span<std::byte> body) { onRecvBody(id, body); });
}

void NetMessengerServerSession::onRecvBody(std::uint32_t messageID, std::span<std::byte> body) {
    NetMessengerStreamBuffer stream(body);
    std::unique_ptr<NetMsg> message = readFrameBody("NetMessengerServerSession", messageID, stream);
    if (message != nullptr) {
        message->setSession(this);
        arrived.messages.push_back(std::move(message));
        arrived.bytes += body.size() + queuedBytesPerMessage;
    }
}

void NetMessengerServerSession::goOn(bool queueHasRoom) {
    if (!queueHasRoom) {
        sessions.waitForDrain([self = shared_from_this()] { self->readMore(); });
    } else if (unsentBytes() > unsentBytesAtMost) {
        waitsForPeer = true;
    } else {
        readMore();
    }
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

std::size_t NetMessengerServerSession::unsentBytes() {
    const std::scoped_lock lock(outgoingMutex);
    return outgoing.size();
}

void NetMessengerServerSession::writeOutgoing() {
    inFlight.clear();
    {
        const std::scoped_lock lock(outgoingMutex);
        inFlight.swap(outgoing);
        isWriting = !inFlight.empty();
    }
    if (!inFlight.empty()) {
        boost::asio::async_write(socket, boost::asio::buffer(inFlight),
                                 [self = shared_from_this()](const error_code& error, std::size_t /*count*/) {
                                     self->onSendMsg(error);
                                 });
    }
}

void NetMessengerServerSession::onSendMsg(const error_code& error) {
    if (error) {
        Report() << "ERROR: NetMessengerServerSession::onSendMsg(...): "
                 << "NetMessengerServerSession:191"
                 << "\n"
                 << "   " << error.category().name() << ": " << error.value() << "\n";
    }
    writeOutgoing();
    if (waitsForPeer && unsentBytes() <= unsentBytesAtMost) {
        waitsForPeer = false;
        readMore();
    }
}

} // namespace Vantrel
