#pragma once

#include <arpa/inet.h>
#include <cstdint>
#include <initializer_list>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace Vantrel::Tests {

/**
 * A port that nobody listens on, by TCP or UDP. It lies below those that the system hands out by itself, and
 * test programs that run side by side begin to look in different places.
 */
inline std::uint16_t freePort() {
    constexpr unsigned first = 15000;
    constexpr unsigned count = 15000;
    static unsigned next = static_cast<unsigned>(::getpid()) * 37;
    for (;;) {
        const auto port = static_cast<std::uint16_t>(first + next++ % count);
        bool isFree = true;
        for (const int kind : {SOCK_STREAM, SOCK_DGRAM}) {
            const int probe = ::socket(AF_INET, kind | SOCK_CLOEXEC, 0);
            sockaddr_in address{};
            address.sin_family = AF_INET;
            address.sin_port = htons(port);
            address.sin_addr.s_addr = htonl(INADDR_ANY);
            isFree =
                ::bind(probe, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0 && isFree;
            ::close(probe);
        }
        if (isFree) {
            return port;
        }
    }
}

} // namespace Vantrel::Tests
