#pragma once

#include "vtl/net/NetMsg.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace Vantrel {

class NetMessengerStreamBuffer;

/** Makes a message from a body; null when the class refuses it. */
using NetMsgCreator = std::unique_ptr<NetMsg> (*)(NetMessengerStreamBuffer& body);

/**
 * Creators by id, looked up once for every frame that arrives. The ids are hashes, so their low bits serve as
 * the place to look.
 */
class NetMsgCreatorTable {
public:
    /** False for an id that is there already, and when the table is full. */
    bool insert(std::uint32_t id, NetMsgCreator creator);
    /** Null for an unknown id. */
    NetMsgCreator find(std::uint32_t id) const { return slots[slotFor(id)].creator; }

private:
    struct Slot {
        std::uint32_t id = 0;
        NetMsgCreator creator = nullptr;
    };

    /** The slot that holds the id, else the free one where it would go. */
    std::size_t slotFor(std::uint32_t id) const {
        std::size_t i = id % slots.size();
        while (slots[i].creator != nullptr && slots[i].id != id) {
            i = (i + 1) % slots.size();
        }
        return i;
    }

    std::array<Slot, 512> slots{}; // several times the classes of the protocol, and at most half full
    std::size_t size = 0;
};

/**
 * Turns an id and a body into a message object.
 *
 * Message classes enlist themselves before `main` through a `NetMsgRegistration`; after that the maps are
 * only read, on the network worker and on the main thread, without a lock.
 */
class ManagerSerializableNetMsgMap {
public:
    using Creator = NetMsgCreator;

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
    static std::unique_ptr<NetMsg> createInstance(std::uint32_t id, NetMessengerStreamBuffer& body) {
        const NetMsgCreator creator = creators.find(id);
        if (creator == nullptr) {
            return nullptr;
        }
        return id != genericID ? creator(body) : createNamed(body);
    }

    /** The id of a class, 0 if the name isn't registered. */
    static std::uint32_t getNetMsgID(std::string_view name);

private:
    static constexpr std::uint32_t genericID = netMsgIDOf("NetMsgGeneric");

    static std::unique_ptr<NetMsg> createNamed(NetMessengerStreamBuffer& body);
    static void start();
    static void enlist(std::string_view name, Creator creator);

    static constinit NetMsgCreatorTable creators;
};

/** The `New` of every message class: builds one from its body, null when the body is refused. */
template <class Message>
std::unique_ptr<NetMsg> newNetMsg(NetMessengerStreamBuffer& body) {
    static_assert(alignof(Message) <= alignof(std::max_align_t),
                  "the memory of messages is aligned for no more");
    auto message = std::make_unique<Message>();
    if (!message->Message::fromStream(body)) {
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
