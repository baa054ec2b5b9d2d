#include "vtl/net/NetMessengerServer.h"

#include "tests/support/LoopbackClient.h"
#include "tests/support/RandomInput.h"
#include "tests/support/ReportCapture.h"
#include "tests/support/WireBytes.h"
#include "tests/unit/net/TestMessages.h"
#include "vtl/base/ManagerEnvironmentConfiguration.h"
#include "vtl/net/NetMessengerServerListener.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <malloc.h>
#include <optional>
#include <sys/resource.h>
#include <thread>

namespace Vantrel {
namespace {

using Configuration = ManagerEnvironmentConfiguration;
using Tests::deeds;
using Tests::LoopbackClient;
using Tests::LoopbackSocket;
using Tests::NetMsgProbe;
using Tests::WireBytes;
using Deeds = std::vector<std::string>;

WireBytes probe(std::uint32_t number, std::uint32_t replyLength = 0, std::string_view remark = "") {
    return WireBytes::frame(netMsgIDOf("NetMsgProbe"), WireBytes().u32(number).u32(replyLength).text(remark));
}

WireBytes replyTo(std::uint32_t number, std::uint32_t length) {
    return WireBytes::frame(netMsgIDOf("NetMsgProbeReply"),
                            WireBytes().u32(number).u32(0).text(std::string(length, 'r')));
}

WireBytes unknownFrame(const WireBytes& body) {
    return WireBytes::frame(netMsgIDOf("NetMsgNobody"), body);
}

const std::string badHeader = "onRecvBody()... Received bad header info... Server state may be corrupt...\n"
                              "received byte data is: Buffer Data, one byte at a time... (max buf len: ";
const char* const droppedInHeader = "ERROR: NetMessengerServerSession::onRecvHeader(...):\n   asio.misc: 2\n";
const char* const droppedInBody = "ERROR: NetMessengerServerSession::onRecvBody(...):\n   asio.misc: 2\n";

std::ptrdiff_t entriesOf(const char* directory) {
    return std::distance(std::filesystem::directory_iterator(directory), {});
}

bool isDone(const std::string& deed) {
    return std::ranges::find(deeds, deed) != deeds.end();
}

/** A server on a free port of this host; the test plays the main thread. */
class NetMessengerServerTest : public ::testing::Test {
protected:
    void SetUp() override {
        deeds.clear();
        Configuration::init();
        configure("NetServerListenAddress", "127.0.0.1");
        configure("NetServerListenPort", std::to_string(port));
        server.emplace();
    }
    void TearDown() override {
        server.reset();
        Configuration::shutdown();
        EXPECT_EQ(NetMsgProbe::alive, 0);
    }

    void configure(const std::string& key, const std::string& value) {
        Configuration::populateFromCommandLine({"{" + key + "=" + value + "}"});
        reports.clear();
    }
    void start() {
        server->start();
        ASSERT_NE(server->getListener(), nullptr) << reports.text();
    }

    /** Waits, without an update, for something that the worker does. */
    template <class Condition>
    static bool waitFor(Condition&& condition) {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
        while (!condition()) {
            if (std::chrono::steady_clock::now() > deadline) {
                return false;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        return true;
    }
    bool waitForReports(std::string_view piece, std::size_t times = 1) const {
        return waitFor([&] { return reports.count(piece) >= times; });
    }
    template <class Condition>
    bool updateUntil(Condition&& condition) {
        return waitFor([&] {
            server->update();
            return condition();
        });
    }
    bool updateUntilDone(const std::string& deed) {
        return updateUntil([&deed] { return isDone(deed); });
    }

    /** True when a request is answered: then the worker has also seen all that had been sent before. */
    bool isServed(const LoopbackClient& client) {
        static std::uint32_t number = 1'000'000;
        client.send(probe(++number, 1));
        return updateUntilDone(std::to_string(number) + " gone") &&
               client.receive(replyTo(number, 1).size()) == replyTo(number, 1);
    }
    bool isServed() { return isServed(LoopbackClient(port)); }

    Tests::ReportCapture reports;
    std::optional<NetMessengerServer> server;
    const std::uint16_t port = Tests::freePort();
};

TEST_F(NetMessengerServerTest, UnusablePortFallsBackOnTheDefault) {
    configure("NetServerListenAddress", "nowhere"); // so that nothing is bound
    for (const char* const text : {"0", "abc", "70000", "-1"}) {
        configure("NetServerListenPort", text);
        server->start();
        EXPECT_TRUE(reports.text().starts_with(
            "Defaulting to UDP / TCP Listening Port of 12685...\n"
            "   to set port edit .conf file to say 'NetServerListenPort=12345'\nException: "))
            << text;
    }
}

TEST_F(NetMessengerServerTest, TakenTcpPortLeavesAServerThatDoesNothing) {
    const LoopbackSocket other(SOCK_STREAM);
    ASSERT_TRUE(other.bind(port) && ::listen(other.fd, 1) == 0);
    server->start();
    EXPECT_EQ(reports.text(),
              "Exception: bind: Address already in use\n"
              "ERROR: FAILED to start NetMessengerServer... Future calls on this instance may "
              "cause problems...\n");
    EXPECT_EQ(server->getListener(), nullptr);
    server->update();
}

TEST_F(NetMessengerServerTest, TakenUdpPortLeavesTcp) {
    const LoopbackSocket other(SOCK_DGRAM);
    ASSERT_TRUE(other.bind(port));
    start();
    const std::string number = std::to_string(port);
    EXPECT_EQ(reports.text(),
              "NetMessengerServerListener is listening on TCP:127.0.0.1:" + number +
                  "...\nException: bind: Address already in use\n"
                  "ERROR: FAILED to Open UDP Socket Listener on localhost:" +
                  number +
                  "...\n   UDP Server will NOT listen on this instance. Is another instance already "
                  "running?...\n   Change the UDP Listening Port number in the configuration file...\n\n"
                  "NetMessengerServer - Asynchronous NetMessenger Server Running...\n");
    EXPECT_TRUE(isServed());
}

TEST_F(NetMessengerServerTest, CutsFramesWhereverTheSegmentsEnd) {
    start();
    const LoopbackClient client(port);
    for (const std::byte byte : probe(1, 0, "split at every byte")) {
        client.send(std::span(&byte, 1));
    }
    client.send(probe(2).raw(probe(3)));                 // two in a segment
    client.send(WireBytes::frame(netMsgIDOf("NetMsg"))); // an empty body
    client.send(probe(4, 0, std::string(200'000, 'x'))); // a body of many segments
    client.send(probe(5));
    ASSERT_TRUE(updateUntilDone("5 gone"));
    std::erase_if(deeds, [](const std::string& deed) { return deed.ends_with("gone"); });
    EXPECT_EQ(deeds, (Deeds{"1", "2", "3", "4", "5"}));
    EXPECT_TRUE(reports.text().ends_with("Server Running...\n")) << reports.text();
}

TEST_F(NetMessengerServerTest, BadFrameIsReportedAndTheNextIsRead) {
    start();
    reports.clear();
    const LoopbackClient client(port);
    client.send(unknownFrame({1, 2, 255}).raw(probe(1, 0, "refuse")).raw(probe(2)));
    ASSERT_TRUE(updateUntilDone("2 gone"));
    EXPECT_EQ(deeds, (Deeds{"2", "2 gone"}));
    EXPECT_EQ(reports.text(),
              "NetMessengerServerSession::" + badHeader +
                  "3, cur buf len: 0,)\nOwns Internal Buffer: 0:\n1 2 255 \n\nNetMessengerServerSession::" +
                  badHeader +
                  "15, cur buf len: 15,)\nOwns Internal Buffer: 0:\n"
                  "0 0 0 1 0 0 0 0 114 101 102 117 115 101 0 \n\n");
}

TEST_F(NetMessengerServerTest, ExceptionOfAMessageIsReportedAndNothingElseIsLost) {
    start();
    const LoopbackClient client(port);
    client.send(probe(1, 0, "throw reading").raw(probe(2)).raw(probe(3, 0, "throw acting")).raw(probe(4)));
    Tests::sendDatagram(port, probe(5, 0, "throw reading"));
    Tests::sendDatagram(port, probe(6));
    ASSERT_TRUE(updateUntil([] { return isDone("4 gone") && isDone("6 gone"); }));
    EXPECT_EQ(deeds.size(), 6U);
    const std::string exception = "Exception: told to throw ";
    EXPECT_EQ(reports.count(exception + "reading\nNetMessengerServerSession::" + badHeader), 1U);
    EXPECT_EQ(reports.count(exception + "reading\nNetMessengerServerUDPConn::" + badHeader), 1U);
    EXPECT_EQ(reports.count(exception + "acting\n"), 1U);
    EXPECT_TRUE(isServed(client));
}

TEST_F(NetMessengerServerTest, AllMessagesOfABatchActBeforeTheFirstIsDeleted) {
    start();
    const LoopbackClient client(port);
    const LoopbackClient other(port);
    client.send(probe(1).raw(probe(2)));
    ASSERT_TRUE(waitFor([] { return NetMsgProbe::alive == 2; }));
    other.send(probe(3));
    ASSERT_TRUE(waitFor([] { return NetMsgProbe::alive == 3; }));
    other.send(unknownFrame({})); // read after the others have been queued
    ASSERT_TRUE(waitForReports(badHeader));
    EXPECT_EQ(deeds, Deeds());
    server->update();
    EXPECT_EQ(deeds, (Deeds{"1", "2", "3", "1 gone", "2 gone", "3 gone"}));
}

TEST_F(NetMessengerServerTest, DropIsReportedOnceWithWhatItCutOff) {
    start();
    LoopbackClient(port).send({});
    EXPECT_TRUE(waitForReports(droppedInHeader));
    LoopbackClient(port).send(probe(1).first(6));
    EXPECT_TRUE(waitForReports(droppedInHeader, 2));
    LoopbackClient(port).send(probe(1).first(10));
    EXPECT_TRUE(waitForReports(droppedInBody));
    EXPECT_TRUE(isServed());
    EXPECT_EQ(reports.count("onRecvBody"), 1U);
}

TEST_F(NetMessengerServerTest, BodyThatDoesNotComeCostsNothing) {
    start();
    const std::size_t before = ::mallinfo2().hblkhd; // blocks of this size have mappings of their own
    std::vector<LoopbackClient> claimants;
    for (int i = 0; i < 20; ++i) {
        WireBytes claim = WireBytes().u32(netMsgIDOf("NetMsgProbe")).u32(0xFFFFFFFF);
        claim.resize(i < 16 ? 8 : 20'000'000);
        claimants.emplace_back(port).send(claim);
    }
    EXPECT_TRUE(isServed());
    EXPECT_FALSE(reports.contains("onRecvBody"));
    claimants.clear();
    EXPECT_TRUE(waitForReports(droppedInBody, 20));
    EXPECT_TRUE(isServed());
    EXPECT_LT(::mallinfo2().hblkhd, before + 10'000'000);
}

TEST_F(NetMessengerServerTest, EachClientGetsItsOwnRepliesWholeAndInOrder) {
    start();
    const std::array<LoopbackClient, 2> clients{LoopbackClient(port), LoopbackClient(port)};
    constexpr std::uint32_t requests = 200;
    const auto lengthOf = [](std::uint32_t number) { return number % 7 == 0 ? 50'000U : 1 + number % 100; };
    for (std::uint32_t number = 0; number < 2 * requests; ++number) {
        clients[number % 2].send(probe(number, lengthOf(number)));
    }
    ASSERT_TRUE(updateUntil([] { return deeds.size() == 4 * requests; }));
    for (std::uint32_t number = 0; number < 2 * requests; ++number) {
        const WireBytes expected = replyTo(number, lengthOf(number));
        ASSERT_TRUE(clients[number % 2].receive(expected.size()) == expected) << number;
    }
}

TEST_F(NetMessengerServerTest, HalfClosedPeerStillGetsItsReply) {
    start();
    const LoopbackClient client(port);
    client.send(probe(7, 3));
    client.endSending();
    ASSERT_TRUE(waitForReports(droppedInHeader));
    ASSERT_TRUE(updateUntilDone("7 replied"));
    EXPECT_EQ(client.receive(replyTo(7, 3).size()), replyTo(7, 3));
}

TEST_F(NetMessengerServerTest, PeerThatTakesNoRepliesIsNotReadUntilItDoes) {
    start();
    const LoopbackClient lazy(port);
    const LoopbackClient other(port);
    constexpr std::uint32_t megabyte = 1 << 20;
    constexpr std::uint32_t replies = 40; // far more than the limit and the system's own buffers
    for (std::uint32_t i = 0; i < replies; ++i) {
        lazy.send(probe(i, megabyte));
    }
    ASSERT_TRUE(updateUntilDone("39 replied"));
    lazy.send(probe(40)); // may still be read, by the read that is under way
    ASSERT_TRUE(isServed(other));
    lazy.send(probe(41));
    ASSERT_TRUE(isServed(other));
    EXPECT_FALSE(isDone("41"));

    for (std::uint32_t i = 0; i < replies; ++i) {
        const WireBytes expected = replyTo(i, megabyte);
        ASSERT_TRUE(lazy.receive(expected.size()) == expected) << i;
    }
    EXPECT_TRUE(updateUntilDone("41"));
    EXPECT_TRUE(isServed(lazy));
}

TEST_F(NetMessengerServerTest, HundredsOfConnectsAndDropsLeaveItServing) {
    start();
    const LoopbackClient lasting(port);
    ASSERT_TRUE(isServed(lasting));
    const std::ptrdiff_t before = entriesOf("/proc/self/fd");
    LoopbackClient(port).send(probe(1, 1));
    for (int i = 0; i < 300; ++i) {
        const LoopbackClient passing(port);
    }
    EXPECT_TRUE(waitForReports(droppedInHeader, 301));
    EXPECT_LE(entriesOf("/proc/self/fd"), before + 256);
    // The first is closed by now, and yet there for the message that came on it.
    EXPECT_TRUE(updateUntilDone("1 replied"));
    EXPECT_TRUE(waitForReports("ERROR: NetMessengerServerSession::onSendMsg(...): "
                               "NetMessengerServerSession:191\n   system: 9\n"));
    EXPECT_TRUE(isServed(lasting));
    EXPECT_TRUE(isServed());
}

TEST_F(NetMessengerServerTest, WantOfDescriptorsOnlyDelaysAConnection) {
#if defined(KELDIN_SANITIZED)
    GTEST_SKIP() << "the sanitizer looks at memory through a pipe, and so needs descriptors itself";
#endif
    start();
    ASSERT_TRUE(isServed());
    LoopbackSocket socket(SOCK_STREAM);
    rlimit usual{};
    ::getrlimit(RLIMIT_NOFILE, &usual);
    const rlimit none{.rlim_cur = static_cast<rlim_t>(socket.fd), .rlim_max = usual.rlim_max};
    ::setrlimit(RLIMIT_NOFILE, &none);
    const LoopbackClient client(std::move(socket), port);
    std::this_thread::sleep_for(std::chrono::milliseconds(50)); // for the accept to fail first
    ::setrlimit(RLIMIT_NOFILE, &usual);
    EXPECT_TRUE(isServed(client));
}

struct DatagramRow {
    const char* name;
    WireBytes bytes;
    Deeds deeds;
    std::string report;
};

TEST_F(NetMessengerServerTest, DatagramsAreOneFrameEach) {
    start();
    const std::string emptyNumber = "NetMessengerStreamBuffer::operator>> ( unsigned int& val )... Buffer is "
                                    "empty... Cannot extract from stream...\n";
    const std::string bad = "NetMessengerServerUDPConn::" + badHeader;
    for (const DatagramRow& row : std::vector<DatagramRow>{
             {"empty", {}, {}, "ERROR: NetMessengerServerUDPConn::onRecvDatagram(...):\n   system: 0\n"},
             {"three bytes",
              {1, 2, 3},
              {},
              emptyNumber + emptyNumber + bad + "3, cur buf len: 0,)\nOwns Internal Buffer: 0:\n1 2 3 \n\n"},
             {"no whole length",
              {0, 0, 0, 1, 5, 6, 7},
              {},
              emptyNumber + bad + "7, cur buf len: 4,)\nOwns Internal Buffer: 0:\n0 0 0 1 5 6 7 \n\n"},
             {"unknown id",
              {9, 9, 9, 9, 0, 0, 0, 0},
              {},
              bad + "8, cur buf len: 8,)\nOwns Internal Buffer: 0:\n9 9 9 9 0 0 0 0 \n\n"},
             {"trailing bytes", probe(1).raw(probe(2)), {"1", "1 gone"}, ""},
             {"length that says nothing",
              WireBytes().u32(netMsgIDOf("NetMsgProbe")).u32(0xFFFFFFFF).u32(3).u32(0).text("x"),
              {"3", "3 gone"},
              ""},
             {"request", probe(4, 1), {"4 found no way back", "4 gone"}, ""},
         }) {
        deeds.clear();
        reports.clear();
        Tests::sendDatagram(port, row.bytes);
        EXPECT_TRUE(updateUntil([&] {
            return deeds.size() >= row.deeds.size() && reports.text().size() >= row.report.size();
        })) << row.name;
        EXPECT_EQ(deeds, row.deeds) << row.name;
        EXPECT_EQ(reports.text(), row.report) << row.name;
    }
}

TEST_F(NetMessengerServerTest, FullQueueHoldsTheSenderBackAndLosesNothing) {
    configure("NetServerQueuedMegabytes", "1");
    start();
    Tests::RandomInput random;
    constexpr std::size_t total = 50'000'000;
    constexpr std::size_t largest = 200'000;
    WireBytes stream;
    std::uint32_t probes = 0;
    while (stream.size() < total) {
        stream.raw(probe(probes++, 0, std::string(random.index(0, largest), 'n')));
    }
    NetMsgProbe::mostBytesHeld = 0;
    const LoopbackClient client(port);
    std::span<const std::byte> unsent(stream);
    const auto sendOn = [&] { unsent = unsent.subspan(client.sendSome(unsent)); };
    while (!unsent.empty() && !client.isBlockedFor(300)) {
        sendOn();
    }
    EXPECT_GT(unsent.size(), total / 2) << "the sender was not held back";
    ASSERT_TRUE(updateUntil([&] {
        sendOn();
        return isDone(std::to_string(probes - 1) + " gone");
    }));
    std::erase_if(deeds, [](const std::string& deed) { return deed.ends_with("gone"); });
    ASSERT_EQ(deeds.size(), probes);
    for (std::uint32_t i = 0; i < probes; ++i) {
        ASSERT_EQ(deeds[i], std::to_string(i));
    }
    // One queue that is being applied and one that fills meanwhile, each over its limit by one read.
    EXPECT_LE(NetMsgProbe::mostBytesHeld, 2 * ((1U << 20U) + largest + 65536));
}

TEST_F(NetMessengerServerTest, FloodOfDatagramsIsTheKernelsToDrop) {
    configure("NetServerQueuedMegabytes", "1");
    start();
    LoopbackSocket socket(SOCK_DGRAM);
    socket.connect(port);
    constexpr std::size_t bodySize = 50'000;
    NetMsgProbe::mostBytesHeld = 0;
    for (std::uint32_t i = 0; i < 400; ++i) {
        const WireBytes frame = probe(i, 0, std::string(bodySize, 'n'));
        ::send(socket.fd, frame.data(), frame.size(), 0);
        std::this_thread::sleep_for(std::chrono::microseconds(200)); // or the kernel drops nearly all at once
    }
    EXPECT_GT(NetMsgProbe::mostBytesHeld, std::size_t{1} << 19U);
    EXPECT_LE(NetMsgProbe::mostBytesHeld, (std::size_t{1} << 20U) + bodySize);
    const WireBytes last = probe(1000, 0, "");
    EXPECT_TRUE(updateUntil([&] {
        ::send(socket.fd, last.data(), last.size(), 0);
        return isDone("1000");
    })) << "nothing is received after the drain";
}

TEST_F(NetMessengerServerTest, MessagesQueuedAtShutdownAreDeletedWithoutActing) {
    start();
    const LoopbackClient client(port);
    client.send(probe(1).raw(probe(2)));
    Tests::sendDatagram(port, probe(3));
    ASSERT_TRUE(waitFor([] { return NetMsgProbe::alive == 3; }));
    server.reset();
    EXPECT_EQ(NetMsgProbe::alive, 0);
    EXPECT_EQ(deeds, Deeds());
}

TEST_F(NetMessengerServerTest, FiftyStartsOnOnePortLeaveNothingBehind) {
    const auto startAndStop = [this] {
        reports.clear();
        server.emplace();
        start();
        EXPECT_TRUE(reports.contains("listening on UDP"));
        const LoopbackClient client(port);
        EXPECT_TRUE(isServed(client));
        client.send(probe(1).raw(probe(2, 1'000'000)));
        server.reset();
    };
    startAndStop(); // whatever the process sets up once
    const std::ptrdiff_t descriptors = entriesOf("/proc/self/fd");
    const std::ptrdiff_t threads = entriesOf("/proc/self/task");
    for (int i = 1; i < 50; ++i) {
        startAndStop();
    }
    EXPECT_EQ(entriesOf("/proc/self/fd"), descriptors);
    EXPECT_TRUE(waitFor([threads] { return entriesOf("/proc/self/task") == threads; }));
}

} // namespace
} // namespace Vantrel
