// What the network floor costs beside a bare reader: small frames, large bodies, round trips, and the main
// thread's share. Every figure of ours stands beside one of a plain asio program doing the same, in the same
// run.

#include "vtl/base/ManagerEnvironmentConfiguration.h"
#include "vtl/net/ManagerSerializableNetMsgMap.h"
#include "vtl/net/MessageLayout.h"
#include "vtl/net/NetMessengerServer.h"
#include "vtl/net/NetMessengerServerListener.h"

#include <atomic>
#include <benchmark/benchmark.h>
#include <boost/asio.hpp>
#include <condition_variable>
#include <cstring>
#include <functional>
#include <memory>
#include <mutex>
#include <sched.h>
#include <thread>
#include <vector>

namespace asio = boost::asio;
using asio::ip::tcp;

namespace Vantrel {
namespace {

constexpr std::uint32_t smallFrames = 20'000'000;
constexpr std::uint32_t framesPerSend = 5000;
constexpr std::size_t largeFloats = 1'200'000; // 4.8 MB
constexpr int largeBodies = 20;

std::atomic<std::uint64_t> arrivedMessages = 0;
std::uint64_t arrivedSum = 0;

struct SmallLayout {
    static constexpr std::string_view name = "NetMsgBenchSmall";
    std::uint32_t value = 0;
    template <class Self, class Visitor>
    static void visit(Self& self, Visitor&& visitor) {
        visitor.field("value", self.value, "");
    }
};

class NetMsgBenchSmall : public NetMsgWithLayout<SmallLayout> {
public:
    void onMessageArrived() override {
        arrivedSum += value;
        arrivedMessages.store(arrivedMessages.load(std::memory_order_relaxed) + 1, std::memory_order_release);
    }
};

class NetMsgBenchLarge : public NetMsg {
public:
    static constexpr std::string_view name = "NetMsgBenchLarge";
    std::string getMessageType() const override { return std::string(name); }
    bool fromStream(NetMessengerStreamBuffer& buffer) override {
        floats = buffer.extractFloats(buffer.remaining() / sizeof(float));
        return true;
    }
    void onMessageArrived() override { arrivedMessages += floats.size() == largeFloats ? 1 : 0; }

private:
    std::vector<float> floats;
};

class NetMsgBenchEcho : public NetMsgWithLayout<SmallLayout> {
public:
    static constexpr std::string_view name = "NetMsgBenchEcho";
    std::string getMessageType() const override { return std::string(name); }
    void onMessageArrived() override { sendReply(*this); }
};

const NetMsgRegistration<NetMsgBenchSmall> smallRegistration;
const NetMsgRegistration<NetMsgBenchLarge> largeRegistration;
const NetMsgRegistration<NetMsgBenchEcho> echoRegistration;

void putUnsigned(std::vector<std::byte>& bytes, std::uint32_t value) {
    for (int shift = 24; shift >= 0; shift -= 8) {
        bytes.push_back(static_cast<std::byte>(value >> static_cast<unsigned>(shift)));
    }
}

std::vector<std::byte> smallFrame(std::string_view name, std::uint32_t value) {
    std::vector<std::byte> frame;
    putUnsigned(frame, netMsgIDOf(name));
    putUnsigned(frame, sizeof(value));
    putUnsigned(frame, value);
    return frame;
}

std::vector<std::byte> manySmallFrames() {
    std::vector<std::byte> frames;
    for (std::uint32_t i = 0; i < framesPerSend; ++i) {
        const auto frame = smallFrame(NetMsgBenchSmall::name, i);
        frames.insert(frames.end(), frame.begin(), frame.end());
    }
    return frames;
}

std::vector<std::byte> largeFrame() {
    std::vector<std::byte> frame;
    putUnsigned(frame, netMsgIDOf(NetMsgBenchLarge::name));
    putUnsigned(frame, largeFloats * sizeof(float));
    frame.resize(frame.size() + largeFloats * sizeof(float), std::byte{1});
    return frame;
}

tcp::socket connectTo(asio::io_context& io, std::uint16_t port) {
    tcp::socket socket(io);
    socket.connect({asio::ip::address_v4::loopback(), port});
    socket.set_option(tcp::no_delay(true));
    return socket;
}

/** Sends `bytes` `times` over from a thread of its own, then waits for the other end to close. */
class Peer {
public:
    Peer(std::uint16_t port, const std::vector<std::byte>& bytes, std::uint32_t times)
        : thread([this, port, &bytes, times] {
            asio::io_context io;
            tcp::socket socket = connectTo(io, port);
            for (std::uint32_t i = 0; i < times; ++i) {
                asio::write(socket, asio::buffer(bytes));
            }
            boost::system::error_code ignored;
            socket.shutdown(tcp::socket::shutdown_send, ignored);
            isSent = true;
            isSent.notify_one();
            char end = 0;
            asio::read(socket, asio::buffer(&end, 1), ignored);
        }) {}
    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;
    ~Peer() { thread.join(); }

    void waitUntilSent() { isSent.wait(false); }

private:
    std::atomic<bool> isSent = false;
    std::thread thread;
};

/** A running server of ours on a free port, with reports going nowhere. */
class OurServer {
public:
    OurServer() {
        Reports::open([](std::string_view) {});
        ManagerEnvironmentConfiguration::init();
        ManagerEnvironmentConfiguration::populateFromCommandLine(
            {"{NetServerListenPort=" + std::to_string(freePort()) + "}",
             "{NetServerListenAddress=127.0.0.1}"});
        server.start();
    }
    std::uint16_t port() { return server.getListener()->port(); }

    static std::uint16_t freePort() {
        asio::io_context io;
        return tcp::acceptor(io, {asio::ip::address_v4::loopback(), 0}).local_endpoint().port();
    }

    NetMessengerServer server;
};

void drainUntil(NetMessengerServer& server, std::uint64_t count) {
    while (arrivedMessages.load(std::memory_order_relaxed) < count) {
        server.update();
        std::this_thread::sleep_for(std::chrono::milliseconds(1)); // as a frame loop would
    }
}

/** The peer's hand-over: whole batches under a lock. */
struct Batches {
    std::mutex mutex;
    std::condition_variable changed;
    std::vector<std::uint64_t> values;
    bool ended = false;

    void put(std::vector<std::uint64_t>& batch) {
        const std::scoped_lock lock(mutex);
        values.insert(values.end(), batch.begin(), batch.end());
        batch.clear();
        changed.notify_one();
    }
    bool take(std::vector<std::uint64_t>& batch) {
        batch.clear();
        std::unique_lock lock(mutex);
        changed.wait(lock, [this] { return ended || !values.empty(); });
        values.swap(batch);
        return !batch.empty();
    }
};

std::uint32_t bigEndian(const std::byte* bytes) {
    std::uint32_t raw = 0;
    std::memcpy(&raw, bytes, sizeof(raw));
    return __builtin_bswap32(raw);
}

/** A bare asio reader: 64 KiB at a time, every whole frame cut out, batches handed over. */
class BareReader {
public:
    BareReader(tcp::socket accepted, Batches& target) : socket(std::move(accepted)), batches(target) {}

    void read() {
        socket.async_read_some(asio::buffer(buffer.data() + held, buffer.size() - held),
                               [this](const boost::system::error_code& error, std::size_t count) {
                                   if (!error) {
                                       held += count;
                                       cut();
                                       read();
                                   }
                               });
    }

private:
    void cut() {
        constexpr std::size_t headerSize = 8;
        std::size_t at = 0;
        while (held - at >= headerSize) {
            const std::uint32_t length = bigEndian(&buffer[at + 4]);
            if (held - at < headerSize + length) {
                break;
            }
            batch.push_back(std::uint64_t{bigEndian(&buffer[at])} << 32U |
                            bigEndian(&buffer[at + headerSize]));
            at += headerSize + length;
        }
        std::memmove(buffer.data(), buffer.data() + at, held - at);
        held -= at;
        batches.put(batch);
    }

    tcp::socket socket;
    Batches& batches;
    std::vector<std::byte> buffer = std::vector<std::byte>(65536);
    std::size_t held = 0;
    std::vector<std::uint64_t> batch;
};

void bareSmallFrames(benchmark::State& state) {
    const std::vector<std::byte> frames = manySmallFrames();
    for (auto _ : state) {
        asio::io_context io;
        tcp::acceptor acceptor(io, {asio::ip::address_v4::loopback(), 0});
        Peer client(acceptor.local_endpoint().port(), frames, smallFrames / framesPerSend);
        Batches batches;
        std::uint64_t sum = 0;
        std::thread consumer([&] {
            for (std::vector<std::uint64_t> batch; batches.take(batch);) {
                for (const std::uint64_t value : batch) {
                    sum += value & 0xFFFFFFFFU;
                }
            }
        });
        {
            BareReader reader(acceptor.accept(), batches);
            reader.read();
            io.run();
        }
        {
            const std::scoped_lock lock(batches.mutex);
            batches.ended = true;
            batches.changed.notify_one();
        }
        consumer.join();
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * std::int64_t{smallFrames});
}

void ourSmallFrames(benchmark::State& state) {
    const std::vector<std::byte> frames = manySmallFrames();
    for (auto _ : state) {
        arrivedMessages = 0;
        auto ours = std::make_unique<OurServer>();
        Peer client(ours->port(), frames, smallFrames / framesPerSend);
        drainUntil(ours->server, smallFrames);
        ours.reset(); // the peer waits for this
    }
    state.SetItemsProcessed(state.iterations() * std::int64_t{smallFrames});
}

void bareLargeBodies(benchmark::State& state) {
    const std::vector<std::byte> frame = largeFrame();
    for (auto _ : state) {
        asio::io_context io;
        tcp::acceptor acceptor(io, {asio::ip::address_v4::loopback(), 0});
        Peer client(acceptor.local_endpoint().port(), frame, largeBodies);
        tcp::socket socket = acceptor.accept();
        std::byte header[8];
        std::vector<float> floats;
        std::function<void()> readFrame = [&] {
            asio::async_read(
                socket, asio::buffer(header), [&](const boost::system::error_code& error, std::size_t) {
                    if (error) {
                        return;
                    }
                    floats = std::vector<float>(bigEndian(header + 4) / sizeof(float));
                    asio::async_read(socket, asio::buffer(floats),
                                     [&](const boost::system::error_code&, std::size_t) {
                                         auto* words = reinterpret_cast<std::uint32_t*>(floats.data());
                                         for (std::size_t i = 0; i < floats.size(); ++i) {
                                             words[i] = __builtin_bswap32(words[i]);
                                         }
                                         benchmark::DoNotOptimize(floats.data());
                                         readFrame();
                                     });
                });
        };
        readFrame();
        io.run();
        socket.close();
    }
    state.SetBytesProcessed(state.iterations() * largeBodies * static_cast<std::int64_t>(frame.size()));
}

void ourLargeBodies(benchmark::State& state) {
    const std::vector<std::byte> frame = largeFrame();
    for (auto _ : state) {
        arrivedMessages = 0;
        auto ours = std::make_unique<OurServer>();
        Peer client(ours->port(), frame, largeBodies);
        drainUntil(ours->server, largeBodies);
        ours.reset(); // the peer waits for this
    }
    state.SetBytesProcessed(state.iterations() * largeBodies * static_cast<std::int64_t>(frame.size()));
}

/** While it lives, this thread and those it starts share one processor: what is left is work, not wake-ups.
 */
class ScopedOneProcessor {
public:
    ScopedOneProcessor() {
        ::sched_getaffinity(0, sizeof(before), &before);
        cpu_set_t one;
        CPU_ZERO(&one);
        CPU_SET(0, &one);
        ::sched_setaffinity(0, sizeof(one), &one);
    }
    ScopedOneProcessor(const ScopedOneProcessor&) = delete;
    ScopedOneProcessor& operator=(const ScopedOneProcessor&) = delete;
    ~ScopedOneProcessor() { ::sched_setaffinity(0, sizeof(before), &before); }

private:
    cpu_set_t before{};
};

/** Sends a request and waits for its 12-byte reply, once an iteration. */
void roundTrips(benchmark::State& state, std::uint16_t port) {
    asio::io_context io;
    tcp::socket socket = connectTo(io, port);
    const std::vector<std::byte> request = smallFrame(NetMsgBenchEcho::name, 1);
    std::vector<std::byte> reply(request.size());
    for (auto _ : state) {
        asio::write(socket, asio::buffer(request));
        asio::read(socket, asio::buffer(reply));
    }
}

void bareRoundTrip(benchmark::State& state) {
    const ScopedOneProcessor one;
    asio::io_context io;
    tcp::acceptor acceptor(io, {asio::ip::address_v4::loopback(), 0});
    std::thread server([&] {
        tcp::socket socket = acceptor.accept();
        socket.set_option(tcp::no_delay(true));
        std::byte frame[12];
        std::function<void()> serve = [&] {
            asio::async_read(
                socket, asio::buffer(frame), [&](const boost::system::error_code& error, std::size_t) {
                    if (!error) {
                        asio::async_write(socket, asio::buffer(frame),
                                          [&](const boost::system::error_code&, std::size_t) { serve(); });
                    }
                });
        };
        serve();
        io.run();
    });
    roundTrips(state, acceptor.local_endpoint().port());
    server.join();
}

void ourRoundTrip(benchmark::State& state) {
    const ScopedOneProcessor one;
    OurServer ours;
    std::atomic<bool> ended = false;
    std::thread mainThread([&] {
        while (!ended) {
            ours.server.update();
            std::this_thread::yield();
        }
    });
    roundTrips(state, ours.port());
    ended = true;
    mainThread.join();
}

/** What a frame pays when nothing has arrived. */
void ourIdleUpdate(benchmark::State& state) {
    OurServer ours;
    for (auto _ : state) {
        ours.server.update();
    }
}

/** One frame that finds a million messages: calls, then deletions. */
void ourDrainOfAMillion(benchmark::State& state) {
    const std::vector<std::byte> frames = manySmallFrames();
    constexpr std::uint32_t million = 1'000'000;
    for (auto _ : state) {
        arrivedMessages = 0;
        auto ours = std::make_unique<OurServer>();
        Peer peer(ours->port(), frames, million / framesPerSend);
        peer.waitUntilSent();
        std::this_thread::sleep_for(std::chrono::milliseconds(100)); // for the worker to read the rest
        const auto start = std::chrono::steady_clock::now();
        ours->server.update();
        state.SetIterationTime(
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
        if (arrivedMessages != million) {
            state.SkipWithError("not all had arrived");
        }
        ours.reset(); // the peer waits for this
    }
}

BENCHMARK(bareSmallFrames)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ourSmallFrames)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(bareLargeBodies)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ourLargeBodies)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(bareRoundTrip)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(ourRoundTrip)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(ourIdleUpdate);
BENCHMARK(ourDrainOfAMillion)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(5);

} // namespace
} // namespace Vantrel
