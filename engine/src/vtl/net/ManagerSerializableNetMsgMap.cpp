#include "vtl/net/ManagerSerializableNetMsgMap.h"

#include "vtl/base/Pause.h"
#include "vtl/base/Report.h"
#include "vtl/net/NetMessengerStreamBuffer.h"
#include "vtl/net/NetMsg.h"
#include "vtl/net/NetMsgGeneric.h"

#include <functional>
#include <map>
#include <utility>
#include <vector>

namespace Vantrel {
namespace {

using Creator = ManagerSerializableNetMsgMap::Creator;

/** Creators by id, looked up once for every frame that arrives. The ids are hashes, so their low bits serve.
 */
class CreatorTable {
public:
    bool insert(std::uint32_t id, Creator creator) {
        if (find(id) != nullptr) {
            return false;
        }
        constexpr std::size_t slotsPerEntry = 2;
        if ((size + 1) * slotsPerEntry > slots.size()) {
            enlarge();
        }
        slots[slotFor(id)] = {id, creator};
        ++size;
        return true;
    }

    Creator find(std::uint32_t id) const { return slots[slotFor(id)].creator; }

private:
    struct Slot {
        std::uint32_t id = 0;
        Creator creator = nullptr;
    };

    /** The slot that holds the id, else the free one where it would go. */
    std::size_t slotFor(std::uint32_t id) const {
        std::size_t i = id & mask;
        while (slots[i].creator != nullptr && slots[i].id != id) {
            i = (i + 1) & mask;
        }
        return i;
    }

    void enlarge() {
        const std::vector<Slot> old = std::exchange(slots, std::vector<Slot>(slots.size() * 2));
        mask = slots.size() - 1;
        for (const Slot& slot : old) {
            if (slot.creator != nullptr) {
                slots[slotFor(slot.id)] = slot;
            }
        }
    }

    static constexpr std::size_t firstSize = 64;
    std::vector<Slot> slots = std::vector<Slot>(firstSize); // always a power of two, at most half full
    std::size_t mask = firstSize - 1;
    std::size_t size = 0;
};

struct Registry {
    CreatorTable creators;
    std::map<std::string, std::uint32_t, std::less<>> names;
};

struct Registration {
    std::string_view name;
    Creator creator;
};

// Both are used before main, from static objects of other files, so they must need no code to start.
constinit std::unique_ptr<Registry> registry;
constinit std::vector<Registration> registrations;

/** The name of another class with the same id; empty when there is none. */
std::string_view findCollision(std::string_view name, std::uint32_t id) {
    for (const auto& [otherName, otherID] : registry->names) {
        if (otherID == id && otherName != name) {
            return otherName;
        }
    }
    return {};
}

void reportCollision(std::string_view otherName, std::string_view name, std::uint32_t id) {
    Report() << "WARNING: Hash Collision Exists between NetMsg '" << otherName << "' and '" << name << "'\n"
             << "   Both hash to the scalar " << id << "\n..."
             << "   Rename one of the two conflicting NetMsg Subclasses to the hashes do not collide or get\n"
             << "   Marlo to rework this...\n"
             << "Press ENTER to continue.";
    Pause::waitForKey();
    Report()
        << "WARNING: ManagerSerializableNetMsgMap::registerNetMsgType(...) will not register two messages to "
           "the\n"
        << "   same callback. NetMsg '" << name << "' will not function...\n";
}

void enlist(std::string_view name, Creator creator) {
    const std::uint32_t id = netMsgIDOf(name);
    const auto [entry, isNew] = registry->names.try_emplace(std::string(name), id);
    if (!isNew) {
        Report() << "ManagerSerializableNetMsgMap - Already Registered '" << name << "' '" << entry->second
                 << "'\n";
        return;
    }
    if (const std::string_view otherName = findCollision(name, id); !otherName.empty()) {
        reportCollision(otherName, name, id);
        return;
    }
    Report report;
    report << "ManagerSerializableNetMsgMap - New Registered '" << name << "' '" << id << "'\n";
    report << (registry->creators.insert(id, creator) ? "Creating mapping from '"
                                                      : "ERROR: Failed to creating mapping from '")
           << id << "' to function pointer at '" << reinterpret_cast<const void*>(creator) << "'...\n";
}

void startRegistry() {
    registry = std::make_unique<Registry>();
    enlist(GenericLayout::name, &newNetMsg<NetMsgGeneric>);
}

const struct BaseClassRegistration {
    BaseClassRegistration() {
        ManagerSerializableNetMsgMap::registerNetMsgType("NetMsg", &newNetMsg<NetMsg>);
    }
} baseClassRegistration;

} // namespace

void ManagerSerializableNetMsgMap::init() {
    if (registry != nullptr) {
        return;
    }
    startRegistry();
    for (const Registration& registration : registrations) {
        enlist(registration.name, registration.creator);
    }
}

void ManagerSerializableNetMsgMap::shutdown() {
    registry.reset();
}

void ManagerSerializableNetMsgMap::registerNetMsgType(std::string_view name, Creator creator) {
    if (registry == nullptr) {
        init();
    }
    registrations.push_back({name, creator});
    enlist(name, creator);
}

std::unique_ptr<NetMsg> ManagerSerializableNetMsgMap::createInstance(std::uint32_t id,
                                                                     NetMessengerStreamBuffer& body) {
    if (registry == nullptr) {
        return nullptr;
    }
    const Creator creator = registry->creators.find(id);
    if (creator == nullptr) {
        return nullptr;
    }
    std::unique_ptr<NetMsg> message = creator(body);
    if (id != netMsgIDOf(GenericLayout::name) || message == nullptr) {
        return message;
    }
    const std::string key = static_cast<const NetMsgGeneric&>(*message).payload;
    const auto named = registry->names.find(key);
    if (named == registry->names.end()) {
        Report() << "Invalid NetMsgGeneric key '" << key << "'. The first param of a\n"
                 << " generic message must be a c string equal to a valid NetMsg subclass...\n";
        return nullptr;
    }
    const Creator namedCreator = registry->creators.find(named->second);
    return namedCreator != nullptr ? namedCreator(body) : nullptr;
}

std::uint32_t ManagerSerializableNetMsgMap::getNetMsgID(std::string_view name) {
    if (registry == nullptr) {
        return 0;
    }
    const auto entry = registry->names.find(name);
    return entry != registry->names.end() ? entry->second : 0;
}

} // namespace Vantrel
