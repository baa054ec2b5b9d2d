#pragma once

#include "vtl/net/ManagerSerializableNetMsgMap.h"
#include "vtl/net/NetMessengerStreamBuffer.h"

#include <cstdint>
#include <exception>
#include <memory>

namespace Vantrel {

/** What a queued message counts for beyond its body, so that a flood of empty ones is bounded too. */
constexpr std::size_t queuedBytesPerMessage = 32;

/** Reports the bytes of a frame that is no message, in the name of the class that received it. */
void reportBadHeader(const char* receiver, const NetMessengerStreamBuffer& stream);

/** Reports an exception that ends here. */
void reportException(const std::exception& failure);

/**
 * The message of a frame whose header has been read and at whose body `stream` stands. Null when there is
 * none; then the bytes have been reported. Throws nothing but std::bad_alloc.
 */
inline std::unique_ptr<NetMsg> readFrameBody(const char* receiver, std::uint32_t messageID,
                                             NetMessengerStreamBuffer& stream) {
    std::unique_ptr<NetMsg> message;
    try {
        message = ManagerSerializableNetMsgMap::createInstance(messageID, stream);
    } catch (const std::exception& failure) {
        reportException(failure);
    }
    if (message == nullptr) [[unlikely]] {
        reportBadHeader(receiver, stream);
    }
    return message;
}

} // namespace Vantrel
