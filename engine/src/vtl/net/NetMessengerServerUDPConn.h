#pragma once

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/udp.hpp>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace Vantrel {

class NetMessengerMessageQueue;
class NetMessengerSessionContainer;
class NetMsg;

/** Message of the datagram `bytes`, one frame at its start; null (and a report) when there is none. */
std::unique_ptr<NetMsg> readDatagram(std::span<std::byte> bytes);

/** The listening UDP socket: one frame a datagram, no replies. The network worker's once it has started. */
class NetMessengerServerUDPConn {
public:
    /** Opens and binds; throws boost::system::system_error where that fails. */
    NetMessengerServerUDPConn(boost::asio::io_context& service,
                              const boost::asio::ip::udp::endpoint& endpoint,
                              NetMessengerSessionContainer& container, NetMessengerMessageQueue& inbound);
    NetMessengerServerUDPConn(const NetMessengerServerUDPConn&) = delete;
    NetMessengerServerUDPConn& operator=(const NetMessengerServerUDPConn&) = delete;
    virtual ~NetMessengerServerUDPConn() = default;

    /** Begins to receive. */
    void start();
    boost::asio::ip::udp::endpoint localEndpoint() const { return socket.local_endpoint(); }

private:
    /** Puts the datagram's message into the queue; false when the queue is over its limit. */
    bool deliver(std::span<std::byte> datagram);
    void onRecvDatagram(const boost::system::error_code& error, std::size_t count);

    static constexpr std::size_t largestDatagram = 65536;

    boost::asio::ip::udp::socket socket;
    boost::asio::ip::udp::endpoint sender;
    std::unique_ptr<std::byte[]> receiveBlock;
    NetMessengerSessionContainer& sessions;
    NetMessengerMessageQueue& inboundQueue;
};

} // namespace Vantrel
