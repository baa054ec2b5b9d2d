#pragma once

#include "vtl/net/NetMessengerMessageQueue.h"
#include "vtl/net/NetMessengerServerUDPConn.h"
#include "vtl/net/NetMessengerSessionContainer.h"

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/steady_timer.hpp>
#include <cstdint>
#include <memory>
#include <string>

namespace Vantrel {

/** Where a server listens and how much it holds. */
struct NetMessengerServerSettings {
    /** IPv4 address in dotted form. */
    std::string address = "0.0.0.0";
    /** One number for TCP and UDP. */
    std::uint16_t port = 0;
    /** Bytes of undrained messages beyond which TCP sessions are not read. */
    std::size_t queuedBytesAtMost = 0;
};

/** Accepts TCP sessions and receives datagrams, all into one queue. */
class NetMessengerServerListener {
public:
    /**
     * Listens at once on TCP (throws boost::system::system_error where that fails) and, where it can, on UDP.
     * Its handlers run on whoever runs `service`.
     */
    NetMessengerServerListener(boost::asio::io_context& service, const NetMessengerServerSettings& settings);
    NetMessengerServerListener(const NetMessengerServerListener&) = delete;
    NetMessengerServerListener& operator=(const NetMessengerServerListener&) = delete;
    virtual ~NetMessengerServerListener() = default;

    virtual NetMessengerSessionContainer& getSessionContainer() { return sessions; }
    virtual NetMessengerMessageQueue& getMessageQueue() { return inboundQueue; }

    /** The port that TCP listens on. */
    std::uint16_t port() const { return acceptor.local_endpoint().port(); }
    /** Lets the sessions read on that waited for the queue to be drained. Main thread. */
    void resumeWaiting();

private:
    void listenOnTCP(const boost::asio::ip::tcp::endpoint& endpoint);
    void listenOnUDP(const boost::asio::ip::udp::endpoint& endpoint);
    void accept();
    void onAccepted(const boost::system::error_code& error, boost::asio::ip::tcp::socket socket);
    void acceptLater();

    boost::asio::io_context& ioService;
    boost::asio::ip::tcp::acceptor acceptor;
    boost::asio::steady_timer acceptRetry;
    std::unique_ptr<NetMessengerServerUDPConn> udpConnection;
    NetMessengerSessionContainer sessions;
    NetMessengerMessageQueue inboundQueue;
};

} // namespace Vantrel
