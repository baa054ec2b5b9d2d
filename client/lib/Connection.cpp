#include "client/lib/Connection.h"

#include "vtl/net/ManagerSerializableNetMsgMap.h"
#include "vtl/net/NetMessengerStreamBuffer.h"
#include "vtl/net/NetMsg.h"

#include <array>
#include <boost/asio/connect.hpp>
#include <boost/asio/read.hpp>
#include <boost/asio/write.hpp>
#include <stdexcept>
#include <vector>

namespace Vantrel {
namespace {

namespace asio = boost::asio;
using asio::ip::tcp;
using asio::ip::udp;
using boost::system::error_code;

constexpr std::size_t headerSize = 8;
/** No reply of the protocol comes near this. */
constexpr std::uint32_t largestReply = 64 * 1024 * 1024;

void check(const std::string& what, const error_code& error) {
    if (error) {
        throw std::runtime_error(what + ": " + error.message());
    }
}

} // namespace

Connection::Connection(Protocol protocol, const std::string& host, const std::string& port, Duration timeout)
    : timeLimit(timeout) {
    if (protocol == Protocol::tcp) {
        connectTcp(host, port);
    } else {
        connectUdp(host, port);
    }
}

/** Runs one asynchronous operation, which `start` begins with the handler it is given, to its end or the
 * limit. */
template <class Start>
void Connection::runWithin(const std::string& what, Start&& start) {
    std::optional<error_code> result;
    start([&result](const error_code& error, auto&&...) { result = error; });
    ioContext.restart();
    const auto deadline = std::chrono::steady_clock::now() + timeLimit;
    while (!result && ioContext.run_one_until(deadline) > 0) {
    }
    if (!result) {
        throw std::runtime_error(what + ": no answer in time");
    }
    check(what, *result);
}

void Connection::connectTcp(const std::string& host, const std::string& port) {
    const std::string what = "cannot connect to " + host + " port " + port;
    error_code error;
    const auto endpoints = tcp::resolver(ioContext).resolve(host, port, error);
    check(what, error);
    tcpSocket.emplace(ioContext);
    runWithin(what, [&](auto handler) { asio::async_connect(*tcpSocket, endpoints, handler); });
    tcpSocket->set_option(tcp::no_delay(true), error);
}

void Connection::connectUdp(const std::string& host, const std::string& port) {
    const std::string what = "cannot send to " + host + " port " + port;
    error_code error;
    const auto endpoints = udp::resolver(ioContext).resolve(udp::v4(), host, port, error);
    check(what, error);
    udpSocket.emplace(ioContext, udp::v4());
    udpSocket->connect(*endpoints.begin(), error);
    check(what, error);
}

void Connection::send(std::span<const std::byte> bytes) {
    const auto buffer = asio::buffer(bytes.data(), bytes.size());
    if (tcpSocket) {
        runWithin("cannot send", [&](auto handler) { asio::async_write(*tcpSocket, buffer, handler); });
    } else {
        runWithin("cannot send", [&](auto handler) { udpSocket->async_send(buffer, handler); });
    }
}

void Connection::send(const NetMsg& message) {
    NetMessengerStreamBuffer buffer;
    message.toStream(buffer);
    send(std::span(buffer.data(), buffer.length()));
}

void Connection::read(std::span<std::byte> bytes) {
    const auto buffer = asio::buffer(bytes.data(), bytes.size());
    runWithin("no reply", [&](auto handler) { asio::async_read(*tcpSocket, buffer, handler); });
}

std::unique_ptr<NetMsg> Connection::receive() {
    std::array<std::byte, headerSize> header{};
    read(header);
    NetMessengerStreamBuffer headerStream(header);
    std::uint32_t id = 0;
    std::uint32_t bodyLength = 0;
    headerStream >> id >> bodyLength;
    if (bodyLength > largestReply) {
        throw std::runtime_error("the reply claims " + std::to_string(bodyLength) + " bytes");
    }
    std::vector<std::byte> body(bodyLength);
    read(body);
    NetMessengerStreamBuffer bodyStream(body);
    return ManagerSerializableNetMsgMap::createInstance(id, bodyStream);
}

} // namespace Vantrel
