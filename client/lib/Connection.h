#pragma once

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/ip/udp.hpp>
#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>

namespace Vantrel {

class NetMsg;

/**
 * The tool's end of a connection to a viewer. Every operation ends within its time, but for the look-up of a
 * host's name; failures throw std::runtime_error in words for a person.
 */
class Connection {
public:
    enum class Protocol { tcp, udp };
    using Duration = std::chrono::milliseconds;

    Connection(Protocol protocol, const std::string& host, const std::string& port, Duration timeout);

    /** Sends the bytes: a stream's next ones, or one datagram. */
    void send(std::span<const std::byte> bytes);
    /** Sends a whole frame. */
    void send(const NetMsg& message);

    /** The next message that comes back; null when its class is unknown. Only TCP brings any. */
    std::unique_ptr<NetMsg> receive();

private:
    void connectTcp(const std::string& host, const std::string& port);
    void connectUdp(const std::string& host, const std::string& port);
    void read(std::span<std::byte> bytes);
    template <class Start>
    void runWithin(const std::string& what, Start&& start);

    boost::asio::io_context ioContext;
    std::optional<boost::asio::ip::tcp::socket> tcpSocket;
    std::optional<boost::asio::ip::udp::socket> udpSocket;
    Duration timeLimit;
};

} // namespace Vantrel
