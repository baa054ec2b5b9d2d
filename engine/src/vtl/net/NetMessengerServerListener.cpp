#include "vtl/net/NetMessengerServerListener.h"

#include "vtl/base/Report.h"
#include "vtl/net/FrameReading.h"
#include "vtl/net/NetMessengerServerSession.h"

#include <boost/asio/post.hpp>
#include <chrono>
#include <exception>
#include <utility>

namespace Vantrel {
namespace {

using boost::asio::ip::tcp;
using boost::asio::ip::udp;
using boost::system::error_code;

constexpr std::chrono::milliseconds acceptRetryDelay{100};

template <class Endpoint>
void reportListening(const char* protocol, const Endpoint& endpoint) {
    Report() << "NetMessengerServerListener is listening on " << protocol << ":" << endpoint << "...\n";
}

bool isWantOfResources(const error_code& error) {
    return error == boost::asio::error::no_descriptors || error == boost::asio::error::no_buffer_space ||
           error == boost::asio::error::no_memory ||
           error == boost::system::errc::too_many_files_open_in_system;
}

} // namespace

NetMessengerServerListener::NetMessengerServerListener(boost::asio::io_context& service,
                                                       const NetMessengerServerSettings& settings)
    : ioService(service), acceptor(service), acceptRetry(service), inboundQueue(settings.queuedBytesAtMost) {
    const auto address = boost::asio::ip::make_address_v4(settings.address);
    listenOnTCP({address, settings.port});
    accept();
    reportListening("TCP", acceptor.local_endpoint());
    listenOnUDP({address, acceptor.local_endpoint().port()});
}

void NetMessengerServerListener::resumeWaiting() {
    boost::asio::post(ioService, [this] { sessions.resumeWaiting(); });
}

void NetMessengerServerListener::listenOnTCP(const tcp::endpoint& endpoint) {
    acceptor.open(endpoint.protocol());
    acceptor.set_option(tcp::acceptor::reuse_address(true));
    acceptor.bind(endpoint);
    acceptor.listen();
}

void NetMessengerServerListener::listenOnUDP(const udp::endpoint& endpoint) {
    try {
        udpConnection =
            std::make_unique<NetMessengerServerUDPConn>(ioService, endpoint, sessions, inboundQueue);
        udpConnection->start();
        reportListening("UDP", udpConnection->localEndpoint());
    } catch (const std::exception& failure) {
        Report()
            << "Exception: " << failure.what() << "\n"
            << "ERROR: FAILED to Open UDP Socket Listener on localhost:" << endpoint.port() << "...\n"
            << "   UDP Server will NOT listen on this instance. Is another instance already running?...\n"
            << "   Change the UDP Listening Port number in the configuration file...\n\n";
    }
}

void NetMessengerServerListener::accept() {
    acceptor.async_accept(
        [this](const error_code& error, tcp::socket socket) { onAccepted(error, std::move(socket)); });
}

void NetMessengerServerListener::onAccepted(const error_code& error, tcp::socket socket) {
    if (isWantOfResources(error)) {
        acceptLater();
        return;
    }
    if (error) {
        return;
    }
    try {
        auto session = std::make_shared<NetMessengerServerSession>(std::move(socket), sessions, inboundQueue);
        sessions.add(session);
        session->start();
    } catch (const std::exception& failure) {
        reportException(failure);
    }
    accept();
}

void NetMessengerServerListener::acceptLater() {
    sessions.closeOldestEnded();
    acceptRetry.expires_after(acceptRetryDelay);
    acceptRetry.async_wait([this](const error_code& error) {
        if (!error) {
            accept();
        }
    });
}

} // namespace Vantrel
