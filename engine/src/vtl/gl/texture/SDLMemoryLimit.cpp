#include "vtl/gl/texture/SDLMemoryLimit.h"

#include <SDL.h>
#include <limits>

namespace Vantrel {
namespace {

constexpr std::size_t noLimit = std::numeric_limits<std::size_t>::max();
thread_local std::size_t largestBlockOfThread = noLimit;

/** SDL's own functions, which the limited ones stand before. */
struct MemoryFunctions {
    SDL_malloc_func allocate = nullptr;
    SDL_calloc_func allocateCleared = nullptr;
    SDL_realloc_func reallocate = nullptr;
    SDL_free_func release = nullptr;
};
MemoryFunctions original;

void* SDLCALL limitedMalloc(std::size_t size) {
    return size <= largestBlockOfThread ? original.allocate(size) : nullptr;
}

void* SDLCALL limitedCalloc(std::size_t count, std::size_t size) {
    const bool fits = size == 0 || count <= largestBlockOfThread / size;
    return fits ? original.allocateCleared(count, size) : nullptr;
}

void* SDLCALL limitedRealloc(void* block, std::size_t size) {
    return size <= largestBlockOfThread ? original.reallocate(block, size) : nullptr;
}

/** Blocks from before are released by the same function as blocks from after, so that the moment is free. */
bool installLimitedFunctions() {
    SDL_GetMemoryFunctions(&original.allocate, &original.allocateCleared, &original.reallocate,
                           &original.release);
    return SDL_SetMemoryFunctions(limitedMalloc, limitedCalloc, limitedRealloc, original.release) == 0;
}

} // namespace

SDLMemoryLimit::SDLMemoryLimit(std::size_t largestBlock) {
    static const bool isInstalled = installLimitedFunctions();
    static_cast<void>(isInstalled);
    largestBlockOfThread = largestBlock;
}

SDLMemoryLimit::~SDLMemoryLimit() {
    largestBlockOfThread = noLimit;
}

} // namespace Vantrel
