#pragma once

#include "tests/support/FreePort.h"

#include <arpa/inet.h>
#include <cstddef>
#include <cstdint>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <span>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace Vantrel::Tests {

/** A socket on 127.0.0.1; `type` is SOCK_STREAM or SOCK_DGRAM. */
class LoopbackSocket {
public:
    explicit LoopbackSocket(int type) : fd(::socket(AF_INET, type, 0)) {}
    LoopbackSocket(LoopbackSocket&& other) noexcept : fd(std::exchange(other.fd, -1)) {}
    ~LoopbackSocket() { ::close(fd); }

    /** Takes a port, any free one for 0; false when it is taken. */
    bool bind(std::uint16_t port) const { return at(port, &::bind); }
    void connect(std::uint16_t port) const {
        if (!at(port, &::connect)) {
            throw std::runtime_error("cannot connect");
        }
    }
    std::uint16_t port() const {
        sockaddr_in address{};
        socklen_t size = sizeof(address);
        ::getsockname(fd, reinterpret_cast<sockaddr*>(&address), &size);
        return ntohs(address.sin_port);
    }

    int fd;

private:
    bool at(std::uint16_t port, int (*operation)(int, const sockaddr*, socklen_t)) const {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(port);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        return operation(fd, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
    }
};

/** The TCP peer of a server on this host; every operation blocks, a receive for 20 seconds at most. */
class LoopbackClient {
public:
    explicit LoopbackClient(std::uint16_t port) : LoopbackClient(LoopbackSocket(SOCK_STREAM), port) {}
    LoopbackClient(LoopbackSocket&& unconnected, std::uint16_t port) : socket(std::move(unconnected)) {
        const int yes = 1;
        const timeval patience{.tv_sec = 20, .tv_usec = 0};
        ::setsockopt(socket.fd, IPPROTO_TCP, TCP_NODELAY, &yes, sizeof(yes));
        ::setsockopt(socket.fd, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof(patience));
        socket.connect(port);
    }

    void send(std::span<const std::byte> bytes) const {
        while (!bytes.empty()) {
            bytes = bytes.subspan(sendSome(bytes, 0));
        }
    }
    /** Sends what the system takes at once and returns how much that was. */
    std::size_t sendSome(std::span<const std::byte> bytes, int flags = MSG_DONTWAIT) const {
        const ssize_t sent = ::send(socket.fd, bytes.data(), bytes.size(), flags | MSG_NOSIGNAL);
        if (sent < 0 && flags == 0) {
            throw std::runtime_error("the server does not take what is sent");
        }
        return sent > 0 ? static_cast<std::size_t>(sent) : 0;
    }
    /** True when the system takes nothing more for `milliseconds`. */
    bool isBlockedFor(int milliseconds) const {
        pollfd output{.fd = socket.fd, .events = POLLOUT, .revents = 0};
        return ::poll(&output, 1, milliseconds) == 0;
    }
    /** `count` bytes; fewer when the server closes or keeps silent. */
    std::vector<std::byte> receive(std::size_t count) const {
        std::vector<std::byte> bytes(count);
        const ssize_t received = ::recv(socket.fd, bytes.data(), count, MSG_WAITALL);
        bytes.resize(received > 0 ? static_cast<std::size_t>(received) : 0);
        return bytes;
    }
    /** Sends no more; replies still come. */
    void endSending() const { ::shutdown(socket.fd, SHUT_WR); }

private:
    LoopbackSocket socket;
};

inline void sendDatagram(std::uint16_t port, std::span<const std::byte> bytes) {
    const LoopbackSocket socket(SOCK_DGRAM);
    socket.connect(port);
    if (::send(socket.fd, bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size())) {
        throw std::runtime_error("cannot send a datagram");
    }
}

} // namespace Vantrel::Tests
