#pragma once

#include "vtl/net/WireOrder.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>

namespace Vantrel {

/**
 * Cuts message frames out of a byte stream, wherever the stream is cut itself.
 *
 * Small frames are cut out of one 64 KiB buffer in place. A body that doesn't fit into it is received
 * straight into a block of its own, which grows with what has been received and never ahead of it by more
 * than as much again: a length that is claimed and never sent costs nothing.
 */
class NetMessengerFrameDecoder {
public:
    static constexpr std::uint32_t headerSize = 8;
    static constexpr std::size_t bufferSize = 65536;

    /** Gives memory like std::realloc. */
    using Reallocate = void* (*)(void*, std::size_t);

    explicit NetMessengerFrameDecoder(Reallocate memorySource = &std::realloc);
    NetMessengerFrameDecoder(const NetMessengerFrameDecoder&) = delete;
    NetMessengerFrameDecoder& operator=(const NetMessengerFrameDecoder&) = delete;
    ~NetMessengerFrameDecoder();

    /** Where the next received bytes belong; empty when memory for a body can't be had, or has been released.
     */
    std::span<std::byte> space();

    /**
     * Says that `count` bytes now stand at the start of `space()`, and calls `onFrame(id, body)` for every
     * frame that is whole, in order. The body is `onFrame`'s to change while it runs.
     */
    template <class OnFrame>
    void received(std::size_t count, OnFrame&& onFrame) {
        if (isReceivingBlock()) {
            receivedInBlock(count, onFrame);
        } else {
            end += count;
            cutFrames(onFrame);
        }
    }

    /** Gives all memory back, an unfinished body included; nothing can be received any more. */
    void releaseMemory();

    /** True between frames and within a header. */
    bool isAwaitingHeader() const { return !isReceivingBlock() && end - begin < headerSize; }

    /** Claimed length of the body that is being received. */
    std::uint32_t bodyLength() const { return currentLength; }

private:
    struct Header {
        std::uint32_t id;
        std::uint32_t bodyLength;
    };

    static Header readHeader(const std::byte* bytes) {
        return {wireUnsigned(bytes), wireUnsigned(bytes + sizeof(std::uint32_t))};
    }
    bool isReceivingBlock() const { return receivingBlock; }
    void moveRestToFront();
    void startBlock();
    bool growBlock();
    void finishBlock();

    template <class OnFrame>
    void cutFrames(OnFrame& onFrame) {
        while (end - begin >= headerSize) {
            const Header header = readHeader(buffer.get() + begin);
            currentID = header.id;
            currentLength = header.bodyLength;
            if (currentLength > bufferSize - headerSize) {
                startBlock();
                return;
            }
            if (end - begin - headerSize < currentLength) {
                break;
            }
            onFrame(currentID, std::span(buffer.get() + begin + headerSize, currentLength));
            begin += headerSize + currentLength;
        }
        moveRestToFront();
    }

    template <class OnFrame>
    void receivedInBlock(std::size_t count, OnFrame& onFrame) {
        blockReceived += count;
        if (blockReceived == currentLength) {
            onFrame(currentID, std::span(block, currentLength));
            finishBlock();
        }
    }

    Reallocate reallocate;
    std::unique_ptr<std::byte[]> buffer;
    std::size_t begin = 0;
    std::size_t end = 0;
    std::uint32_t currentID = 0;
    std::uint32_t currentLength = 0;

    bool outOfMemory = false;
    bool receivingBlock = false;
    std::byte* block = nullptr;
    std::size_t blockCapacity = 0;
    std::size_t blockReceived = 0;
};

} // namespace Vantrel
