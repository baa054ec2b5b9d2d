#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace Vantrel {

class NetMessengerStreamBuffer;
class NetMsg;

/**
 * Turns an id and a body into a message object.
 *
 * Message classes enlist themselves before `main` through a `NetMsgRegistration`; after that the maps are
 * only read, on the network worker and on the main thread, without a lock.
 */
class ManagerSerializableNetMsgMap {
public:
    /** Makes a message from a body; null when the class refuses it. */
    using Creator = std::unique_ptr<NetMsg> (*)(NetMessengerStreamBuffer& body);

    /** Fills the maps again after a `shutdown` with every class that ever registered; otherwise does nothing.
     */
    static void init();
    static void shutdown();

    /**
     * Enlists a class under its short name (which must live as long as the process). A name that is there
     * already and a name whose id another class holds are reported and refused; the latter waits for a key.
     */
    static void registerNetMsgType(std::string_view name, Creator creator);

    /**
     * Builds the message of class `id` from `body`, or, for id 1, of the class that the body names first.
     * Null for an unknown id, an unknown name (which is reported) or a refused body.
     */
    static std::unique_ptr<NetMsg> createInstance(std::uint32_t id, NetMessengerStreamBuffer& body);

    /** The id of a class, 0 if the name isn't registered. */
    static std::uint32_t getNetMsgID(std::string_view name);
};

/** The `New` of every message class: builds one from its body, null when the body is refused. */
template <class Message>
std::unique_ptr<NetMsg> newNetMsg(NetMessengerStreamBuffer& body) {
    auto message = std::make_unique<Message>();
    if (!message->fromStream(body)) {
        return nullptr;
    }
    return message;
}

/** A static one of these beside a message class enlists the class. */
template <class Message>
struct NetMsgRegistration {
    NetMsgRegistration() {
        ManagerSerializableNetMsgMap::registerNetMsgType(Message::name, &newNetMsg<Message>);
    }
};

} // namespace Vantrel
