#include "vtl/base/TickSource.h"

#include <atomic>
#include <chrono>

namespace Vantrel {
namespace {

std::uint32_t steadyTick() {
    using namespace std::chrono;
    static const steady_clock::time_point start = steady_clock::now();
    return static_cast<std::uint32_t>(duration_cast<milliseconds>(steady_clock::now() - start).count());
}

std::atomic<TickSource> tickSource = steadyTick;

} // namespace

std::uint32_t currentTick() {
    return tickSource.load(std::memory_order_relaxed)();
}

void setTickSource(TickSource source) {
    tickSource.store(source != nullptr ? source : steadyTick);
}

} // namespace Vantrel
