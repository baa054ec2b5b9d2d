#include "vtl/net/NetMsgMemory.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <mutex>
#include <new>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define KELDIN_SANITIZED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define KELDIN_SANITIZED 1
#endif
#endif

namespace Vantrel {
namespace {

constexpr std::size_t blockSize = 64 * 1024;
constexpr std::size_t alignment = alignof(std::max_align_t);
/** Larger messages are rare and go to the general allocator, as all do where a sanitizer watches over it. */
#if defined(KELDIN_SANITIZED)
constexpr std::size_t largestInBlock = 0;
#else
constexpr std::size_t largestInBlock = 1024;
#endif

/** Stands at the start of a block, which stands at a multiple of its size: so a message finds its block. */
struct alignas(64) Block {
    /**
     * Messages of this block that are alive, less those handed out since the allocating thread took the
     * block: below zero until that thread turns to another block and adds what it handed out.
     */
    std::atomic<std::int32_t> balance{0};
};

struct Cursor {
    Block* block = nullptr;
    std::size_t used = 0;
    std::int32_t handedOut = 0;
};

/** Deletions of the same block in a row are settled together. */
struct Settlement {
    Block* block = nullptr;
    std::int32_t released = 0;
};

constinit thread_local Cursor cursor;
constinit thread_local Settlement settlement;

/**
 * Free blocks kept for the next messages, so that a steady flow of them asks the system for nothing. The
 * block that has been free for longest is used first: the processor that deleted its messages has let go of
 * it by then.
 */
class SpareBlocks {
public:
    Block* take() {
        const std::scoped_lock lock(mutex);
        if (count == 0) {
            return nullptr;
        }
        --count;
        return spares[oldest++ % spares.size()];
    }
    bool keep(Block* block) noexcept {
        const std::scoped_lock lock(mutex);
        if (count == spares.size()) {
            return false;
        }
        spares[(oldest + count++) % spares.size()] = block;
        return true;
    }

private:
    std::mutex mutex;
    std::array<Block*, 512> spares{}; // 32 MiB at most
    std::size_t oldest = 0;
    std::size_t count = 0;
};

constinit SpareBlocks spareBlocks;

Block* newBlock() {
    Block* const spare = spareBlocks.take();
    return spare != nullptr ? spare : new (::operator new(blockSize, std::align_val_t(blockSize))) Block;
}

void freeBlock(Block* block) noexcept {
    if (!spareBlocks.keep(block)) {
        ::operator delete(block, std::align_val_t(blockSize));
    }
}

void settle() noexcept {
    Block* const block = settlement.block;
    const std::int32_t released = settlement.released;
    settlement = {};
    if (block != nullptr && block->balance.fetch_sub(released, std::memory_order_acq_rel) == released) {
        freeBlock(block);
    }
}

void retire() noexcept {
    Block* const block = cursor.block;
    const std::int32_t handedOut = cursor.handedOut;
    cursor = {};
    if (block != nullptr && block->balance.fetch_add(handedOut, std::memory_order_acq_rel) == -handedOut) {
        freeBlock(block);
    }
}

/** Gives back what a thread holds when it ends. Made on the rare paths only, so that the others stay free of
 * it. */
struct ThreadEnd {
    ~ThreadEnd() {
        settle();
        retire();
    }
};

void atThreadEnd() {
    thread_local const ThreadEnd end;
    static_cast<void>(&end);
}

void takeNewBlock() {
    atThreadEnd();
    retire();
    cursor.block = newBlock();
    cursor.used = sizeof(Block);
}

} // namespace

void* NetMsgMemory::allocate(std::size_t size) {
    if (size > largestInBlock) {
        return ::operator new(size);
    }
    const std::size_t rounded = (size + alignment - 1) & ~(alignment - 1);
    if (cursor.block == nullptr || cursor.used + rounded > blockSize) {
        takeNewBlock();
    }
    void* const memory = reinterpret_cast<std::byte*>(cursor.block) + cursor.used;
    cursor.used += rounded;
    ++cursor.handedOut;
    return memory;
}

void NetMsgMemory::release(void* memory, std::size_t size) noexcept {
    if (size > largestInBlock) {
        ::operator delete(memory);
        return;
    }
    auto* const block = reinterpret_cast<Block*>(reinterpret_cast<std::uintptr_t>(memory) & ~(blockSize - 1));
    if (block != settlement.block) {
        atThreadEnd();
        settle();
        settlement.block = block;
    }
    ++settlement.released;
}

} // namespace Vantrel
