#pragma once

#include <cstddef>

namespace Vantrel {

/**
 * Memory for messages, which are made on the network worker in order and deleted on the main thread in about
 * the same order. They are cut off one block after the other and a block goes back whole when its last
 * message is gone, which costs a few instructions a message where the general allocator would hand each one
 * from thread to thread. Any thread may allocate and release.
 */
class NetMsgMemory {
public:
    static void* allocate(std::size_t size);
    static void release(void* memory, std::size_t size) noexcept;
};

} // namespace Vantrel
