#pragma once

#include "vtl/net/NetMessengerFrameDecoder.h"
#include "vtl/net/NetMessengerMessageQueue.h"
#include "vtl/net/NetMessengerStreamBuffer.h"

#include <boost/asio/ip/tcp.hpp>
#include <cstddef>
#include <memory>
#include <mutex>
#include <vector>

namespace Vantrel {

class NetMessengerSessionContainer;

/**
 * One accepted TCP connection. All its work is the network worker's but `sendMsg`, which belongs to the main
 * thread and only hands the finished frame over.
 */
class NetMessengerServerSession : public std::enable_shared_from_this<NetMessengerServerSession> {
public:
    NetMessengerServerSession(boost::asio::ip::tcp::socket accepted, NetMessengerSessionContainer& container,
                              NetMessengerMessageQueue& inbound);
    NetMessengerServerSession(const NetMessengerServerSession&) = delete;
    NetMessengerServerSession& operator=(const NetMessengerServerSession&) = delete;
    virtual ~NetMessengerServerSession() = default;

    /** Begins to read. */
    void start();
    /** Closes the socket; what is still to be sent is lost. */
    void close();

    /** Serialises `message` and sends it; frames reach the peer whole and in the order of the calls. Main
     * thread. */
    void sendMsg(const NetMsg& message);

private:
    void readMore();
    void onReceived(const boost::system::error_code& error, std::size_t count);
    void cutFrames(std::size_t count);
    void onRecvBody(std::uint32_t messageID, std::span<std::byte> body);
    bool deliver();
    void goOn(bool queueHasRoom);
    void reportReceiveError(const boost::system::error_code& error) const;
    void endReading();

    std::size_t unsentBytes();
    void writeOutgoing();
    void onSendMsg(const boost::system::error_code& error);

    boost::asio::ip::tcp::socket socket;
    NetMessengerSessionContainer& sessions;
    NetMessengerMessageQueue& inboundQueue;

    NetMessengerFrameDecoder decoder;
    /** Messages of the read at hand, not yet in the queue. */
    ArrivedMessages arrived;

    std::mutex outgoingMutex;
    /** Finished frames that the socket hasn't been given yet, one behind the other. Guarded by the mutex. */
    std::vector<std::byte> outgoing;
    /** A write is on its way, and will look for more when it ends. Guarded by the mutex. */
    bool isWriting = false;
    /** What the write on its way sends. */
    std::vector<std::byte> inFlight;
    /** The peer doesn't take its replies: no more of its requests are read until it does. */
    bool waitsForPeer = false;
};

} // namespace Vantrel
