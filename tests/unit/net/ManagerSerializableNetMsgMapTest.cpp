#include "vtl/net/ManagerSerializableNetMsgMap.h"

#include "tests/support/KeyPresses.h"
#include "tests/support/ReportCapture.h"
#include "tests/support/WireBytes.h"
#include "tests/unit/net/TestMessages.h"
#include "vtl/net/EngineMessageLayouts.h"
#include "vtl/net/NetMsgGeneric.h"

#include <gtest/gtest.h>
#include <vector>

namespace Vantrel {
namespace {

using Registry = ManagerSerializableNetMsgMap;
using Tests::WireBytes;

static_assert(netMsgIDOf("NetMsgGeneric") == 1);
static_assert(netMsgIDOf("abc") == 0xFB515711);
static_assert(netMsgIDOf("NetMsg") == 0x77FB508B);
static_assert(netMsgIDOf("NetMsgCreateWO") == 0xD0390D2B);
static_assert(netMsgIDOf("NetMsgRunwayWidth") == 0xB581377E);
static_assert(netMsgIDOf("") == 0);
static_assert(netMsgIDOf("\xFF") == 0x9E3779B8); // a byte is a signed number

constexpr const char* first = "NetMsgProbeAezn";
constexpr const char* colliding = "NetMsgProbeAfga";
static_assert(netMsgIDOf(first) == netMsgIDOf(colliding));

/** What is made of a body: the message's own text, or "none". */
std::string madeFrom(std::uint32_t id, WireBytes body) {
    NetMessengerStreamBuffer stream(body);
    const std::unique_ptr<NetMsg> message = Registry::createInstance(id, stream);
    return message != nullptr ? message->toString() : "none";
}

/** The text of a message, with what it adds to the base text. */
std::string textOf(const std::string& name, const std::string& payload = "") {
    return "NetMsg:\n   Specific Subclass is: '" + name + "', NetMsgID is " +
           std::to_string(netMsgIDOf(name)) + "\n" + payload;
}

class ManagerSerializableNetMsgMapTest : public ::testing::Test {
protected:
    void TearDown() override { Registry::init(); }

    Tests::ReportCapture reports;
    Tests::KeyPresses keys;
};

struct Row {
    const char* name;
    WireBytes body;
    std::string made;
    std::string report;
};

TEST_F(ManagerSerializableNetMsgMapTest, MakesMessagesByIdAndByName) {
    const auto badKey = [](const std::string& key) {
        return "Invalid NetMsgGeneric key '" + key +
               "'. The first param of a\n generic message must be a c string equal to a valid NetMsg "
               "subclass...\n";
    };
    const auto empty = [](const std::string& type) {
        return "NetMessengerStreamBuffer::operator>> ( " + type +
               " )... Buffer is empty... Cannot extract from stream...\n";
    };
    const auto generic = [](std::string_view key) { return WireBytes().text(key); };
    for (const Row& row : std::vector<Row>{
             {"NetMsg", {}, textOf("NetMsg"), ""},
             {"NetMsgShutdownInstance", {1, 2}, textOf("NetMsgShutdownInstance"), ""},
             {"NetMsgNobody", {}, "none", ""},
             {"", {}, "none", ""},
             {"NetMsgCreateWO", WireBytes().f32(4).raw(WireBytes{1, 2}),
              textOf("NetMsgCreateWO", "Payload\n4,0,0.\n"), empty("float& val") + empty("float& val")},
             {"NetMsgProbe", WireBytes().u32(0).u32(0).text("refuse"), "none", ""},
             {"NetMsgGeneric", generic("NetMsgShutdownInstance"), textOf("NetMsgShutdownInstance"), ""},
             {"NetMsgGeneric", generic("NetMsgCreateWO").f32(1).f32(-2.5F).f32(3),
              textOf("NetMsgCreateWO", "Payload\n1,-2.5,3.\n"), ""},
             {"NetMsgGeneric", generic("NetMsgProbe").u32(0).u32(0).text("refuse"), "none", ""},
             {"NetMsgGeneric", generic("NetMsgGeneric").text("more"),
              textOf("NetMsgGeneric", "   Payload: 'more'...\n"), ""},
             {"NetMsgGeneric", generic("netmsg"), "none", badKey("netmsg")},
             {"NetMsgGeneric", {}, "none", empty("std::string& s") + badKey("")},
         }) {
        reports.clear();
        EXPECT_EQ(madeFrom(netMsgIDOf(row.name), row.body), row.made) << row.name;
        EXPECT_EQ(reports.text(), row.report) << row.name;
    }
    EXPECT_EQ(Registry::getNetMsgID("NetMsgCreateWO"), 0xD0390D2BU);
    EXPECT_EQ(Registry::getNetMsgID("NetMsgNobody"), 0U);
}

TEST_F(ManagerSerializableNetMsgMapTest, RefusesASecondRegistration) {
    Registry::registerNetMsgType("NetMsgProbe", &newNetMsg<NetMsg>);
    EXPECT_EQ(reports.text(), "ManagerSerializableNetMsgMap - Already Registered 'NetMsgProbe' '" +
                                  std::to_string(netMsgIDOf("NetMsgProbe")) + "'\n");
    EXPECT_EQ(madeFrom(netMsgIDOf("NetMsgProbe"), WireBytes().u32(0).u32(0).text("refuse")), "none");
}

TEST_F(ManagerSerializableNetMsgMapTest, RefusesACollision) {
    Registry::registerNetMsgType(first, &newNetMsg<NetMsg>);
    const std::string id = std::to_string(netMsgIDOf(first));
    EXPECT_TRUE(
        reports.text().starts_with("ManagerSerializableNetMsgMap - New Registered 'NetMsgProbeAezn' '" + id +
                                   "'\nCreating mapping from '" + id + "' to function pointer at '0x"));
    EXPECT_EQ(keys.count(), 0);
    reports.clear();
    Registry::registerNetMsgType(colliding, &newNetMsg<Tests::NetMsgProbe>);
    EXPECT_EQ(reports.text(),
              "WARNING: Hash Collision Exists between NetMsg 'NetMsgProbeAezn' and 'NetMsgProbeAfga'\n"
              "   Both hash to the scalar " +
                  id +
                  "\n...   Rename one of the two conflicting NetMsg Subclasses to the hashes do not collide "
                  "or get\n   Marlo to rework this...\nPress ENTER to continue."
                  "WARNING: ManagerSerializableNetMsgMap::registerNetMsgType(...) will not register two "
                  "messages to the\n   same callback. NetMsg 'NetMsgProbeAfga' will not function...\n");
    EXPECT_EQ(keys.count(), 1);
    EXPECT_EQ(madeFrom(netMsgIDOf(colliding), {}), textOf("NetMsg"));
}

TEST_F(ManagerSerializableNetMsgMapTest, ShutsDownAndFillsAgain) {
    Registry::shutdown();
    EXPECT_EQ(Registry::getNetMsgID("NetMsg"), 0U);
    EXPECT_EQ(madeFrom(netMsgIDOf("NetMsg"), {}), "none");
    Registry::init();
    EXPECT_TRUE(reports.text().starts_with(
        "ManagerSerializableNetMsgMap - New Registered 'NetMsgGeneric' '1'\nCreating mapping from '1' to"));
    EXPECT_EQ(madeFrom(1, WireBytes().text("NetMsgShutdownInstance")), textOf("NetMsgShutdownInstance"));
    reports.clear();
    Registry::init();
    EXPECT_EQ(reports.text(), "");
}

TEST_F(ManagerSerializableNetMsgMapTest, HoldsManyClassesAndRefusesTooMany) {
    static std::vector<std::string> names(300); // they live as long as the registry
    for (std::size_t i = 0; i < names.size(); ++i) {
        names[i] = std::to_string(i) + "th class";
        Registry::registerNetMsgType(names[i], &newNetMsg<NetMsg>);
    }
    for (std::size_t i = 0; i < 200; ++i) {
        EXPECT_EQ(madeFrom(netMsgIDOf(names[i]), {}), textOf("NetMsg")) << names[i];
    }
    EXPECT_EQ(madeFrom(netMsgIDOf(names.back()), {}), "none");
    EXPECT_TRUE(reports.contains("ERROR: Failed to creating mapping from '" +
                                 std::to_string(netMsgIDOf(names.back())) + "' to function pointer at '"));
    EXPECT_EQ(madeFrom(1, WireBytes().text("NetMsgShutdownInstance")), textOf("NetMsgShutdownInstance"));
}

/** Writes a message as a whole frame, which must be `expected`, and reads it again. */
void expectWrittenAs(const NetMsg& message, const WireBytes& expected) {
    NetMessengerStreamBuffer buffer;
    EXPECT_TRUE(message.toStream(buffer));
    EXPECT_EQ(WireBytes(std::span(buffer.data(), buffer.length())), expected);
    EXPECT_EQ(madeFrom(message.getNetMsgID(), WireBytes{std::span(expected).subspan(8)}), message.toString());
}

TEST_F(ManagerSerializableNetMsgMapTest, WritesWhatItReads) {
    NetMsgWithLayout<CreateWOLayout> create;
    create.x = 45;
    create.y = -0.1F;
    create.z = 1e10F;
    expectWrittenAs(create, WireBytes::frame(0xD0390D2B, WireBytes().f32(45).f32(-0.1F).f32(1e10F)));
    EXPECT_EQ(create.toString(), textOf("NetMsgCreateWO", "Payload\n45,-0.1,1e+10.\n"));

    NetMsgWithLayout<CreateWOReplyLayout> reply;
    reply.woId = 77;
    expectWrittenAs(reply, WireBytes::frame(netMsgIDOf("NetMsgCreateWOReply"), WireBytes().u32(77)));
    EXPECT_EQ(reply.toString(), textOf("NetMsgCreateWOReply", "   Payload: 77...\n"));

    const NetMsgWithLayout<ShutdownInstanceLayout> shutdown;
    expectWrittenAs(shutdown, WireBytes::frame(netMsgIDOf("NetMsgShutdownInstance")));
    EXPECT_FALSE(shutdown.sendReply(reply));
}

TEST_F(ManagerSerializableNetMsgMapTest, DeliveredGenericMessageSaysThatItShouldNotBe) {
    NetMsgGeneric().onMessageArrived();
    EXPECT_EQ(reports.text(), "ERROR: NetMsgGeneric::onMessageArrived() should not be called,\n"
                              "   a non generic message should be created from the string within the ...\n");
}

} // namespace
} // namespace Vantrel
