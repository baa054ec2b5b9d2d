// A byte stream of a peer, cut into reads: every frame must come out whole, in order and with its own bytes,
// and each must be a message or be refused.
//
// Input: the longest read, how often the stream comes, and the memory that bodies may have; then the stream.

#include "fuzz/EngineMessages.h"
#include "fuzz/FuzzInput.h"
#include "vtl/net/ManagerSerializableNetMsgMap.h"
#include "vtl/net/NetMessengerFrameDecoder.h"
#include "vtl/net/NetMessengerStreamBuffer.h"

#include <algorithm>
#include <vector>

namespace Vantrel::Fuzzing {
namespace {

std::size_t bodyMemory = 0;

void* reallocateWithin(void* block, std::size_t size) {
    return size <= bodyMemory ? std::realloc(block, size) : nullptr;
}

/** Cuts the frames off a stream that is there as a whole. */
class WholeStream {
public:
    explicit WholeStream(std::span<const std::byte> stream) : bytes(stream) {}

    void requireNext(std::uint32_t id, std::span<const std::byte> body) {
        constexpr std::size_t headerSize = 8;
        require(bytes.size() >= headerSize + body.size());
        require(wireUnsigned(bytes.data()) == id && wireUnsigned(bytes.data() + 4) == body.size());
        bytes = bytes.subspan(headerSize);
        require(std::ranges::equal(bytes.first(body.size()), body));
        bytes = bytes.subspan(body.size());
    }
    void requireNoWholeFrame() const {
        constexpr std::size_t headerSize = 8;
        require(bytes.size() < headerSize || bytes.size() - headerSize < wireUnsigned(bytes.data() + 4));
    }

private:
    std::span<const std::byte> bytes;
};

void makeMessage(std::uint32_t id, std::span<std::byte> body) {
    NetMessengerStreamBuffer stream(body);
    if (const auto message = ManagerSerializableNetMsgMap::createInstance(id, stream)) {
        checkMessage(*message);
    }
}

std::vector<std::byte> repeated(std::span<const std::byte> bytes, std::size_t times) {
    std::vector<std::byte> stream;
    for (std::size_t i = 0; i < times; ++i) {
        stream.insert(stream.end(), bytes.begin(), bytes.end());
    }
    return stream;
}

} // namespace
} // namespace Vantrel::Fuzzing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace Vantrel;
    using namespace Vantrel::Fuzzing;
    FuzzInput input(data, size);
    const std::size_t root = input.option();
    const std::size_t longestRead = 1 + root * root; // from one byte to all that fits
    const std::size_t times = 1 + input.option() % 16;
    bodyMemory = (std::size_t{1} << 26U) >> input.option() % 16;
    const std::vector<std::byte> stream = repeated(input.rest(), times);

    WholeStream expected(stream);
    NetMessengerFrameDecoder decoder(&reallocateWithin);
    std::span<const std::byte> unread(stream);
    while (!unread.empty() && !decoder.space().empty()) {
        const std::size_t count = std::min({unread.size(), decoder.space().size(), longestRead});
        std::copy_n(unread.begin(), count, decoder.space().begin());
        unread = unread.subspan(count);
        decoder.received(count, [&expected](std::uint32_t id, std::span<std::byte> body) {
            expected.requireNext(id, body);
            makeMessage(id, body);
        });
    }
    if (unread.empty()) {
        expected.requireNoWholeFrame();
    }
    return 0;
}
