#include "client/lib/MessageCatalogue.h"

#include "vtl/net/EngineMessageLayouts.h"
#include "vtl/net/ManagerSerializableNetMsgMap.h"

#include <charconv>
#include <stdexcept>

namespace Vantrel {
namespace {

constexpr std::string_view typeName(const std::uint32_t& /*field*/) {
    return "u32";
}
constexpr std::string_view typeName(const float& /*field*/) {
    return "f32";
}
constexpr std::string_view typeName(const std::string& /*field*/) {
    return "str";
}

/** Visitor that lists the fields of a layout. */
class FieldLister {
public:
    explicit FieldLister(std::vector<CatalogueField>& target) : fields(target) {}

    template <class Field>
    void field(std::string_view name, const Field& value, std::string_view meaning) {
        fields.push_back({name, typeName(value), meaning});
    }

private:
    std::vector<CatalogueField>& fields;
};

template <class Number>
void readText(std::string_view name, const std::string& text, Number& value) {
    const bool hasPlus = text.starts_with('+'); // which from_chars doesn't know
    const auto [end, error] =
        std::from_chars(text.data() + (hasPlus ? 1 : 0), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size()) {
        throw std::invalid_argument("'" + text + "' is no " + std::string(typeName(value)) + " for field '" +
                                    std::string(name) + "'");
    }
}

void readText(std::string_view /*name*/, const std::string& text, std::string& value) {
    value = text;
}

/** Visitor that reads every field from the text of its name. */
class FieldFiller {
public:
    explicit FieldFiller(const FieldTexts& source) : texts(source) {}

    template <class Field>
    void field(std::string_view name, Field& value, std::string_view meaning) {
        const auto text = texts.find(name);
        if (text == texts.end()) {
            throw std::invalid_argument("field '" + std::string(name) + "' is missing (" +
                                        std::string(meaning) + ")");
        }
        readText(name, text->second, value);
    }

private:
    const FieldTexts& texts;
};

void refuseUnknownFields(const std::vector<CatalogueField>& fields, const FieldTexts& texts) {
    for (const auto& [name, value] : texts) {
        const bool isKnown = std::any_of(fields.begin(), fields.end(),
                                         [&name = name](const auto& field) { return field.name == name; });
        if (!isKnown) {
            throw std::invalid_argument("there is no field '" + name + "'");
        }
    }
}

template <class Layout>
std::vector<CatalogueField> fieldsOf() {
    std::vector<CatalogueField> fields;
    const Layout layout;
    Layout::visit(layout, FieldLister(fields));
    return fields;
}

template <class Layout>
std::unique_ptr<NetMsg> makeMessage(const FieldTexts& texts) {
    refuseUnknownFields(fieldsOf<Layout>(), texts);
    auto message = std::make_unique<NetMsgWithLayout<Layout>>();
    Layout& fields = *message;
    Layout::visit(fields, FieldFiller(texts));
    return message;
}

template <class Layout>
constexpr std::string_view replyOf() {
    if constexpr (requires { Layout::reply; }) {
        return Layout::reply;
    } else {
        return {};
    }
}

/** The entry of each layout; at this end a message has no effect, only a body. */
template <class... Layouts>
std::vector<CatalogueEntry> catalogueOf() {
    return {CatalogueEntry{.name = Layouts::name,
                           .id = netMsgIDOf(Layouts::name),
                           .reply = replyOf<Layouts>(),
                           .fields = fieldsOf<Layouts>(),
                           .make = &makeMessage<Layouts>}...};
}

const NetMsgRegistration<NetMsgWithLayout<CreateWOLayout>> createWORegistration;
const NetMsgRegistration<NetMsgWithLayout<CreateWOReplyLayout>> createWOReplyRegistration;
const NetMsgRegistration<NetMsgWithLayout<ShutdownInstanceLayout>> shutdownInstanceRegistration;

} // namespace

std::span<const CatalogueEntry> messageCatalogue() {
    static const std::vector<CatalogueEntry> catalogue =
        catalogueOf<GenericLayout, CreateWOLayout, CreateWOReplyLayout, ShutdownInstanceLayout>();
    return catalogue;
}

const CatalogueEntry* findMessage(std::string_view name) {
    for (const CatalogueEntry& entry : messageCatalogue()) {
        if (entry.name == name) {
            return &entry;
        }
    }
    return nullptr;
}

} // namespace Vantrel
