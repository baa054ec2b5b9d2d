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
using Names = std::map<std::string, std::uint32_t, std::less<>>;

struct Registration {
    std::string_view name;
    Creator creator;
};

// Both are used before main, from static objects of other files, so they must need no code to start.
constinit std::unique_ptr<Names> names;
constinit std::vector<Registration> registrations;

/** The name of another class with the same id; empty when there is none. */
std::string_view findCollision(std::string_view name, std::uint32_t id) {
    for (const auto& [otherName, otherID] : *names) {
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

const struct BaseClassRegistration {
    BaseClassRegistration() {
        ManagerSerializableNetMsgMap::registerNetMsgType("NetMsg", &newNetMsg<NetMsg>);
    }
} baseClassRegistration;

} // namespace

bool NetMsgCreatorTable::insert(std::uint32_t id, NetMsgCreator creator) {
    Slot& slot = slots[slotFor(id)];
    constexpr std::size_t slotsPerEntry = 2;
    if (slot.creator != nullptr || (size + 1) * slotsPerEntry > slots.size()) {
        return false;
    }
    slot = {id, creator};
    ++size;
    return true;
}

constinit NetMsgCreatorTable ManagerSerializableNetMsgMap::creators;

void ManagerSerializableNetMsgMap::init() {
    if (names != nullptr) {
        return;
    }
    start();
    for (const Registration& registration : registrations) {
        enlist(registration.name, registration.creator);
    }
}

void ManagerSerializableNetMsgMap::shutdown() {
    names.reset();
    creators = {};
}

void ManagerSerializableNetMsgMap::registerNetMsgType(std::string_view name, Creator creator) {
    if (names == nullptr) {
        init();
    }
    registrations.push_back({name, creator});
    enlist(name, creator);
}

std::unique_ptr<NetMsg> ManagerSerializableNetMsgMap::createNamed(NetMessengerStreamBuffer& body) {
    NetMsgGeneric generic;
    generic.fromStream(body);
    const auto named = names->find(generic.payload);
    if (named == names->end()) {
        Report() << "Invalid NetMsgGeneric key '" << generic.payload << "'. The first param of a\n"
                 << " generic message must be a c string equal to a valid NetMsg subclass...\n";
        return nullptr;
    }
    const Creator creator = creators.find(named->second);
    return creator != nullptr ? creator(body) : nullptr;
}

void ManagerSerializableNetMsgMap::enlist(std::string_view name, Creator creator) {
    const std::uint32_t id = netMsgIDOf(name);
    const auto [entry, isNew] = names->try_emplace(std::string(name), id);
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
    report << (creators.insert(id, creator) ? "Creating mapping from '"
                                            : "ERROR: Failed to creating mapping from '")
           << id << "' to function pointer at '" << reinterpret_cast<const void*>(creator) << "'...\n";
}

void ManagerSerializableNetMsgMap::start() {
    names = std::make_unique<Names>();
    creators = {};
    enlist(GenericLayout::name, &newNetMsg<NetMsgGeneric>);
}

std::uint32_t ManagerSerializableNetMsgMap::getNetMsgID(std::string_view name) {
    if (names == nullptr) {
        return 0;
    }
    const auto entry = names->find(name);
    return entry != names->end() ? entry->second : 0;
}

} // namespace Vantrel
