#pragma once

#include "vtl/net/NetMsgMemory.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace Vantrel {

class NetMessengerServerSession;
class NetMessengerStreamBuffer;

/**
 * The id of a message class in the frame header: a 32-bit hash of the class's short name, so that two ends
 * that agree on names agree on ids. "NetMsgGeneric" is 1.
 *
 * The mixing step is the one of boost::hash_combine with the byte itself as its hash.
 */
constexpr std::uint32_t netMsgIDOf(std::string_view name) {
    if (name == "NetMsgGeneric") {
        return 1;
    }
    constexpr std::uint32_t goldenRatio = 0x9E3779B9;
    std::uint32_t seed = 0;
    for (const char c : name) {
        const auto byte = static_cast<std::uint32_t>(static_cast<std::int32_t>(static_cast<signed char>(c)));
        seed ^= byte + goldenRatio + (seed << 6U) + (seed >> 2U);
    }
    return seed;
}

/**
 * Base of all messages. A message is read on the network worker and acts on the main thread.
 */
class NetMsg {
public:
    NetMsg() = default;
    NetMsg(const NetMsg&) = delete;
    NetMsg& operator=(const NetMsg&) = delete;

    static void* operator new(std::size_t size) { return NetMsgMemory::allocate(size); }
    static void operator delete(void* memory, std::size_t size) { NetMsgMemory::release(memory, size); }

    /** The class's short name. */
    virtual std::string getMessageType() const;
    /** The id that the registry holds for the class's short name, 0 if it holds none. */
    virtual std::uint32_t getNetMsgID() const;
    virtual ~NetMsg() = default;
    /** Writes a whole frame. */
    bool toStream(NetMessengerStreamBuffer& buffer) const;
    /** Writes the body. */
    virtual bool toStreamBody(NetMessengerStreamBuffer& buffer) const;
    /** Reads the body, on the network worker; touches nothing but the message. False refuses the body. */
    virtual bool fromStream(NetMessengerStreamBuffer& buffer);
    /** What the message does, on the main thread. */
    virtual void onMessageArrived();
    /** The message for a report: class, id, and in subclasses the payload. */
    virtual std::string toString() const;
    /** Sends `reply` to where this message came from; false when there is no way back (UDP, built locally).
     */
    virtual bool sendReply(const NetMsg& reply) const;

    /** The TCP session that the message came on, which outlives the message; null when there is none. */
    void setSession(NetMessengerServerSession* origin) { session = origin; }

private:
    NetMessengerServerSession* session = nullptr;
};

} // namespace Vantrel
