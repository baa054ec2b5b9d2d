#include "vtl/net/NetMsgMemory.h"

#include <array>
#include <atomic>
#include <mutex>
#include <new>

namespace Vantrel {
namespace {

constexpr std::size_t blockSize = 64 * 1024;

} // namespace

/** Stands at the start of a block, which stands at a multiple of its size: so a message finds its block. */
struct alignas(64) NetMsgMemory::Block {
    /**
     * Messages of this block that are alive, less those handed out since the allocating thread took the
     * block: below zero until that thread turns to another block and adds what it handed out.
     */
    std::atomic<std::int32_t> balance{0};
};

/** Deletions of the same block in a row are settled together. */
struct NetMsgMemory::Settlement {
    Block* block = nullptr;
    std::int32_t released = 0;
};

/**
 * Free blocks kept for the next messages, so that a steady flow of them asks the system for nothing. The
 * block that has been free for longest is used first: the processor that deleted its messages has let go of
 * it by then.
 */
class NetMsgMemory::SpareBlocks {
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

/** Gives back what a thread holds when it ends. Made on the rare paths only, so that the others stay free of
 * it. */
struct NetMsgMemory::ThreadEnd {
    ~ThreadEnd() {
        settle();
        retireCursor();
    }
};

constinit thread_local NetMsgMemory::Cursor NetMsgMemory::cursor;
constinit thread_local NetMsgMemory::Settlement NetMsgMemory::settlement;
constinit NetMsgMemory::SpareBlocks NetMsgMemory::spareBlocks;

void* NetMsgMemory::allocateElsewhere(std::size_t size) {
    if (size > largestInBlock) {
        return ::operator new(size);
    }
    giveBackAtThreadEnd();
    retireCursor();
    Block* block = spareBlocks.take();
    if (block == nullptr) {
        block = new (::operator new(blockSize, std::align_val_t(blockSize))) Block;
    }
    cursor = {.block = reinterpret_cast<std::byte*>(block),
              .used = sizeof(Block),
              .end = blockSize,
              .handedOut = 0};
    return allocate(size);
}

void NetMsgMemory::release(void* memory, std::size_t size) noexcept {
    if (size > largestInBlock) {
        ::operator delete(memory);
        return;
    }
    auto* const block = reinterpret_cast<Block*>(reinterpret_cast<std::uintptr_t>(memory) & ~(blockSize - 1));
    if (block != settlement.block) {
        giveBackAtThreadEnd();
        settle();
        settlement.block = block;
    }
    ++settlement.released;
}

void NetMsgMemory::settle() noexcept {
    const Settlement settled = settlement;
    settlement = {};
    if (settled.block != nullptr &&
        settled.block->balance.fetch_sub(settled.released, std::memory_order_acq_rel) == settled.released) {
        freeBlock(settled.block);
    }
}

void NetMsgMemory::retireCursor() noexcept {
    const Cursor retired = cursor;
    cursor = {};
    auto* const block = reinterpret_cast<Block*>(retired.block);
    if (block != nullptr &&
        block->balance.fetch_add(retired.handedOut, std::memory_order_acq_rel) == -retired.handedOut) {
        freeBlock(block);
    }
}

void NetMsgMemory::freeBlock(Block* block) noexcept {
    if (!spareBlocks.keep(block)) {
        ::operator delete(block, std::align_val_t(blockSize));
    }
}

void NetMsgMemory::giveBackAtThreadEnd() {
    thread_local const ThreadEnd end;
    static_cast<void>(&end);
}

} // namespace Vantrel
