#include "client/lib/MessageCatalogue.h"

#include "tests/support/WireBytes.h"
#include "vtl/net/NetMessengerStreamBuffer.h"
#include "vtl/net/NetMsg.h"

#include <gtest/gtest.h>
#include <set>
#include <stdexcept>

namespace Vantrel {
namespace {

using Tests::WireBytes;

struct Row {
    const char* message;
    FieldTexts texts;
    /** Null when the message is made. */
    const char* error;
    WireBytes body;
};

TEST(MessageCatalogueTest, MakesMessagesFromTexts) {
    const auto at = [](const char* x, const char* y) { return FieldTexts{{"x", x}, {"y", y}, {"z", "0"}}; };
    const auto id = [](const char* text) { return FieldTexts{{"woId", text}}; };
    for (const Row& row : std::vector<Row>{
             {"NetMsgCreateWO", at("1", "-2.5e1"), nullptr, WireBytes().f32(1).f32(-25).f32(0)},
             {"NetMsgCreateWOReply", id("4294967295"), nullptr, WireBytes().u32(0xFFFFFFFF)},
             {"NetMsgGeneric", {{"payload", ""}}, nullptr, WireBytes().text("")},
             {"NetMsgShutdownInstance", {}, nullptr, {}},
             {"NetMsgCreateWO", {{"x", "1"}}, "field 'y' is missing (m, position of the new object)", {}},
             {"NetMsgShutdownInstance", {{"w", "3"}}, "there is no field 'w'", {}},
             {"NetMsgCreateWO", at("", "2"), "'' is no f32 for field 'x'", {}},
             {"NetMsgCreateWO", at("1", "2 "), "'2 ' is no f32 for field 'y'", {}},
             {"NetMsgCreateWO", at("1e99", "2"), "'1e99' is no f32 for field 'x'", {}},
             {"NetMsgCreateWOReply", id("-1"), "'-1' is no u32 for field 'woId'", {}},
             {"NetMsgCreateWOReply", id("4294967296"), "'4294967296' is no u32 for field 'woId'", {}},
         }) {
        const CatalogueEntry* const entry = findMessage(row.message);
        ASSERT_NE(entry, nullptr) << row.message;
        try {
            NetMessengerStreamBuffer buffer;
            entry->make(row.texts)->toStream(buffer);
            EXPECT_EQ(row.error, nullptr);
            EXPECT_EQ(WireBytes(std::span(buffer.data(), buffer.length())),
                      WireBytes::frame(netMsgIDOf(row.message), row.body));
        } catch (const std::invalid_argument& error) {
            EXPECT_STREQ(error.what(), row.error);
        }
    }
}

TEST(MessageCatalogueTest, ListsEveryMessageOnce) {
    std::set<std::uint32_t> ids;
    for (const CatalogueEntry& entry : messageCatalogue()) {
        EXPECT_EQ(entry.id, netMsgIDOf(entry.name)) << entry.name;
        EXPECT_TRUE(ids.insert(entry.id).second) << entry.name;
        EXPECT_EQ(findMessage(entry.name), &entry);
        EXPECT_TRUE(entry.reply.empty() || findMessage(entry.reply) != nullptr) << entry.name;
    }
    EXPECT_EQ(findMessage("NetMsgCreateWO")->reply, "NetMsgCreateWOReply");
    EXPECT_EQ(findMessage("NetMsgCreateWO")->fields.at(1).type, "f32");
    EXPECT_EQ(findMessage("NetMsgNobody"), nullptr);
}

} // namespace
} // namespace Vantrel
