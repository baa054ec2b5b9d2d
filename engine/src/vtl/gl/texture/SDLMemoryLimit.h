#pragma once

#include <cstddef>

namespace Vantrel {

/**
 * Lets SDL take no block of memory larger than a limit while it lives, on this thread. Image readers take the
 * memory for a picture of the claimed size before they read on, and clear it: a few bytes can claim
 * gigabytes.
 */
class SDLMemoryLimit {
public:
    explicit SDLMemoryLimit(std::size_t largestBlock);
    SDLMemoryLimit(const SDLMemoryLimit&) = delete;
    SDLMemoryLimit& operator=(const SDLMemoryLimit&) = delete;
    ~SDLMemoryLimit();
};

} // namespace Vantrel
