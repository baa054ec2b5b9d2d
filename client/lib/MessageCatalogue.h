#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Vantrel {

class NetMsg;

/** One field of a message's body, in wire order. */
struct CatalogueField {
    std::string_view name;
    /** "u32", "f32" or "str". */
    std::string_view type;
    /** What it means, with its unit first where it has one. */
    std::string_view meaning;
};

/** Values of fields by name, as a person writes them. */
using FieldTexts = std::map<std::string, std::string, std::less<>>;

/** One message class of the protocol. */
struct CatalogueEntry {
    std::string_view name;
    std::uint32_t id = 0;
    /** The class that answers it; empty when nothing does. */
    std::string_view reply;
    std::vector<CatalogueField> fields;
    /**
     * Builds the message. Every field must be given; throws std::invalid_argument, in words for a person, for
     * one that is missing, unknown or unreadable.
     */
    std::unique_ptr<NetMsg> (*make)(const FieldTexts& texts) = nullptr;
};

/** Every message class of the protocol, in the order of the documentation. */
std::span<const CatalogueEntry> messageCatalogue();

/** The entry of a class; null when there is none. */
const CatalogueEntry* findMessage(std::string_view name);

} // namespace Vantrel
