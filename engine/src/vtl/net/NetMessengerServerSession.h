#pragma once

#include "vtl/net/NetMessengerFrameDecoder.h"
#include "vtl/net/NetMessengerMessageQueue.h"
#include "vtl/net/NetMessengerStreamBuffer.h"

#include <boost/asio/ip/tcp.hpp>
#include <cstddef>
#include <deque>
#include <memory>
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
    /** Reads on after a stop for a full queue. */
    void resume() { readMore(); }
    /** Closes the socket; what is still to be sent is lost. */
    void close();

    /** Serialises `message` and sends it; frames reach the peer whole and in the order of the calls. Main
     * thread. */
    void sendMsg(const NetMsg& message);

private:
    void readMore();
    void onReceived(const boost::system::error_code& error, std::size_t count);
    void onRecvBody(std::uint32_t messageID, std::span<std::byte> body);
    bool deliver();
    void reportReceiveError(const boost::system::error_code& error) const;
    void endReading();

    void send(NetMessengerFrame frame);
    void writeNext();
    void onSendMsg(const boost::system::error_code& error);

    boost::asio::ip::tcp::socket socket;
    NetMessengerSessionContainer& sessions;
    NetMessengerMessageQueue& inboundQueue;

    NetMessengerFrameDecoder decoder;
    /** Messages of the read at hand, not yet in the queue. */
    ArrivedMessages arrived;

    std::deque<NetMessengerFrame> outgoing;
    std::size_t outgoingBytes = 0;
    /** The peer doesn't take its replies: no more of its requests are read until it does. */
    bool waitsForPeer = false;
};

} // namespace Vantrel
