#include "vtl/net/NetMessengerFrameDecoder.h"

#include "tests/support/RandomInput.h"
#include "tests/support/WireBytes.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace Vantrel {
namespace {

using Tests::WireBytes;

struct Frame {
    std::uint32_t id;
    WireBytes body;
    bool operator==(const Frame&) const = default;
};

/** Memory that counts what it is asked for and may run out. */
struct CountedMemory {
    static void* reallocate(void* block, std::size_t size) {
        mostAsked = std::max(mostAsked, size);
        return size <= available ? std::realloc(block, size) : nullptr;
    }
    static void reset(std::size_t bytes) {
        available = bytes;
        mostAsked = 0;
    }
    inline static std::size_t available = 0;
    inline static std::size_t mostAsked = 0;
};

/** Gives the decoder as much of `bytes` as it takes at once, `limit` at most, and returns how much that was.
 */
template <class OnFrame>
std::size_t feed(NetMessengerFrameDecoder& decoder, std::span<const std::byte> bytes, std::size_t limit,
                 OnFrame&& onFrame) {
    const std::span<std::byte> space = decoder.space();
    const std::size_t count = std::min({bytes.size(), space.size(), limit});
    std::copy_n(bytes.begin(), count, space.begin());
    decoder.received(count, onFrame);
    return count;
}

class NetMessengerFrameDecoderTest : public ::testing::Test {
protected:
    /** All frames of a stream that arrives in pieces of `nextPiece()` bytes; stops when no space is left. */
    template <class NextPiece>
    std::vector<Frame> framesOf(std::span<const std::byte> stream, NextPiece&& nextPiece) {
        std::vector<Frame> frames;
        while (!stream.empty() && !decoder.space().empty()) {
            stream = stream.subspan(
                feed(decoder, stream, nextPiece(), [&frames](std::uint32_t id, std::span<std::byte> body) {
                    frames.push_back({id, WireBytes(body)});
                    std::ranges::fill(body, std::byte{0xEE}); // the body is the receiver's to change
                }));
        }
        return frames;
    }

    void SetUp() override { CountedMemory::reset(std::size_t{1} << 30U); }

    NetMessengerFrameDecoder decoder{&CountedMemory::reallocate};
};

TEST_F(NetMessengerFrameDecoderTest, GivesTheSameFramesWhereverTheStreamIsCut) {
    Tests::RandomInput random;
    const std::vector<std::size_t> edges{0, 1, 65527, 65528, 65529, 65535, 65536, 65537, 131072, 300'000};
    std::vector<Frame> sent;
    WireBytes stream;
    for (int i = 0; i < 400; ++i) {
        const std::size_t kind = random.index(0, 9);
        const std::size_t size = kind == 0   ? edges[random.index(0, edges.size() - 1)]
                                 : kind == 1 ? random.index(0, 300'000)
                                             : random.index(0, 60);
        WireBytes body;
        body.resize(size);
        std::ranges::generate(body, [&random] { return static_cast<std::byte>(random.index(0, 255)); });
        sent.push_back({static_cast<std::uint32_t>(random.index(0, 0xFFFFFFFF)), body});
        stream.raw(WireBytes::frame(sent.back().id, body));
    }
    const std::vector<std::size_t> usualPieces{1, 7, 8, 9, 1500, 65536, 1'000'000};
    const auto frames = framesOf(
        stream, [&] { return random.index(1, usualPieces[random.index(0, usualPieces.size() - 1)]); });
    EXPECT_TRUE(frames == sent);
    EXPECT_TRUE(decoder.isAwaitingHeader());
    EXPECT_LE(CountedMemory::mostAsked, 300'000U);
}

TEST_F(NetMessengerFrameDecoderTest, TellsHeaderFromBody) {
    const WireBytes frame = WireBytes::frame(9, {1, 2, 3});
    const std::span<const std::byte> bytes(frame);
    const auto none = [](std::uint32_t, std::span<std::byte>) { FAIL(); };
    EXPECT_TRUE(decoder.isAwaitingHeader());
    feed(decoder, bytes.first(7), 7, none);
    EXPECT_TRUE(decoder.isAwaitingHeader());
    feed(decoder, bytes.subspan(7, 3), 3, none);
    EXPECT_FALSE(decoder.isAwaitingHeader());
    EXPECT_EQ(decoder.bodyLength(), 3U);
}

TEST_F(NetMessengerFrameDecoderTest, MemoryFollowsWhatHasComeAndNotWhatIsClaimed) {
    const WireBytes claim = WireBytes().u32(5).u32(0xFFFFFFFF);
    EXPECT_TRUE(framesOf(claim, [] { return std::size_t{8}; }).empty());
    EXPECT_FALSE(decoder.space().empty());
    EXPECT_FALSE(decoder.isAwaitingHeader());
    EXPECT_LE(CountedMemory::mostAsked, 65536U);

    WireBytes body;
    body.resize(10'000'000);
    EXPECT_TRUE(framesOf(body, [] { return std::size_t{100'000}; }).empty());
    EXPECT_LE(CountedMemory::mostAsked, 2 * body.size());
}

TEST_F(NetMessengerFrameDecoderTest, WantOfMemoryStopsTheStreamAndNothingElse) {
    CountedMemory::reset(200'000);
    WireBytes stream = WireBytes::frame(1, {7});
    stream.u32(2).u32(1'000'000);
    stream.resize(stream.size() + 1'000'000, std::byte{1});
    const auto frames = framesOf(stream, [] { return std::size_t{50'000}; });
    EXPECT_EQ(frames, (std::vector<Frame>{{1, {7}}}));
    EXPECT_TRUE(decoder.space().empty());
    EXPECT_EQ(decoder.bodyLength(), 1'000'000U);
    CountedMemory::reset(1 << 30);
    EXPECT_TRUE(decoder.space().empty()) << "it must not go on in the middle of a body";
}

} // namespace
} // namespace Vantrel
