#pragma once

#include <cstdint>

namespace Vantrel {

/** Milliseconds since some fixed moment; wraps after 49 days. */
using TickSource = std::uint32_t (*)();

/** The present tick of the engine's one clock. Any thread. */
std::uint32_t currentTick();

/** Replaces the clock: the window system's own in the viewer, a hand-driven one in tests. Main thread. */
void setTickSource(TickSource source);

} // namespace Vantrel
