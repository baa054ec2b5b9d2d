#pragma once

#include <cstddef>
#include <cstdint>

namespace Vantrel {

/**
 * Memory for messages, which are made on the network worker in order and deleted on the main thread in about
 * the same order. They are cut off one block after the other and a block goes back whole when its last
 * message is gone, which costs a few instructions a message where the general allocator would hand each one
 * from thread to thread. Any thread may allocate and release.
 */
class NetMsgMemory {
public:
    static void* allocate(std::size_t size) {
        const std::size_t start = (cursor.used + alignmentFor(size) - 1) & ~(alignmentFor(size) - 1);
        if (size > largestInBlock || start + size > cursor.end) {
            return allocateElsewhere(size);
        }
        cursor.used = start + size;
        ++cursor.handedOut;
        return cursor.block + start;
    }
    static void release(void* memory, std::size_t size) noexcept;

private:
    /** Larger messages go to the general allocator, as all do where the address sanitizer watches over it. */
#if defined(KELDIN_ADDRESS_SANITIZED)
    static constexpr std::size_t largestInBlock = 0;
#else
    static constexpr std::size_t largestInBlock = 1024;
#endif

    /** Where this thread cuts from. */
    struct Cursor {
        std::byte* block = nullptr;
        std::size_t used = 0;
        std::size_t end = 0;
        std::int32_t handedOut = 0;
    };
    struct Block;
    struct Settlement;
    struct ThreadEnd;
    class SpareBlocks;

    /** An object's size is a multiple of its alignment, so only these sizes can hold one that needs 16. */
    static constexpr std::size_t alignmentFor(std::size_t size) {
        return size % 16 == 0 ? 16 : 8;
    }

    /** From a new block, or, for a large message, from the general allocator. */
    static void* allocateElsewhere(std::size_t size);
    static void retireCursor() noexcept;
    static void settle() noexcept;
    static void freeBlock(Block* block) noexcept;
    static void giveBackAtThreadEnd();

    static constinit thread_local Cursor cursor;
    static constinit thread_local Settlement settlement;
    static constinit SpareBlocks spareBlocks;
};

} // namespace Vantrel
