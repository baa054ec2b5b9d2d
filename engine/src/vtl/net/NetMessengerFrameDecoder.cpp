#include "vtl/net/NetMessengerFrameDecoder.h"

#include <algorithm>
#include <cstring>

namespace Vantrel {
namespace {

/** A block up to this size is kept for the next large body, which then costs no growing. */
constexpr std::size_t keptBlockAtMost = 8 * 1024 * 1024;

} // namespace

NetMessengerFrameDecoder::NetMessengerFrameDecoder(Reallocate memorySource)
    : reallocate(memorySource), buffer(std::make_unique_for_overwrite<std::byte[]>(bufferSize)) {
}

NetMessengerFrameDecoder::~NetMessengerFrameDecoder() {
    std::free(block);
}

std::span<std::byte> NetMessengerFrameDecoder::space() {
    if (outOfMemory || buffer == nullptr) {
        return {};
    }
    if (!isReceivingBlock()) {
        return {buffer.get() + end, bufferSize - end};
    }
    if (blockReceived == blockCapacity && !growBlock()) {
        return {};
    }
    const std::size_t usable = std::min<std::size_t>(blockCapacity, currentLength);
    return {block + blockReceived, usable - blockReceived};
}

void NetMessengerFrameDecoder::releaseMemory() {
    buffer.reset();
    std::free(block);
    block = nullptr;
    blockCapacity = 0;
}

void NetMessengerFrameDecoder::moveRestToFront() {
    std::memmove(buffer.get(), buffer.get() + begin, end - begin);
    end -= begin;
    begin = 0;
}

void NetMessengerFrameDecoder::startBlock() {
    begin += headerSize;
    moveRestToFront();
    receivingBlock = true;
    if (blockCapacity < end && !growBlock()) {
        return;
    }
    std::copy_n(buffer.get(), end, block);
    blockReceived = end;
    end = 0;
}

bool NetMessengerFrameDecoder::growBlock() {
    const std::size_t wanted = std::max(bufferSize, 2 * blockCapacity);
    const std::size_t newCapacity = std::min<std::size_t>(wanted, currentLength);
    void* const larger = reallocate(block, newCapacity);
    if (larger == nullptr) {
        outOfMemory = true;
        return false;
    }
    block = static_cast<std::byte*>(larger);
    blockCapacity = newCapacity;
    return true;
}

void NetMessengerFrameDecoder::finishBlock() {
    receivingBlock = false;
    blockReceived = 0;
    if (blockCapacity > keptBlockAtMost) {
        std::free(block);
        block = nullptr;
        blockCapacity = 0;
    }
}

} // namespace Vantrel
