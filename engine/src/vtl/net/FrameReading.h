#pragma once

#include "vtl/net/NetMessengerStreamBuffer.h"
#include "vtl/net/NetMsg.h"

#include <cstdint>
#include <memory>

namespace Vantrel {

/** What a queued message counts for beyond its body, so that a flood of empty ones is bounded too. */
constexpr std::size_t queuedBytesPerMessage = 32;

/**
 * The message of a frame whose header has been read and at whose body `stream` stands. Null when there is
 * none; then the bytes have been reported in the name of the class `receiver`. Throws nothing but
 * std::bad_alloc.
 */
std::unique_ptr<NetMsg> readFrameBody(const char* receiver, std::uint32_t messageID,
                                      NetMessengerStreamBuffer& stream);

/** Reports the bytes of a frame that is no message. */
void reportBadHeader(const char* receiver, const NetMessengerStreamBuffer& stream);

} // namespace Vantrel
