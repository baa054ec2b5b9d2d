#include "vtl/shell/FrameRate.h"

#include "vtl/base/ManagerSDLTime.h"
#include "vtl/base/TickSource.h"

#include <SDL.h>
#include <utility>

namespace Vantrel {

void FrameRate::startFrame() {
    frameStart = currentTick();
}

bool FrameRate::endFrame() {
    constexpr std::uint32_t almostASecondMs = 999;
    ++frames;
    frameEnd = currentTick();
    frameMs = frameEnd - frameStart;
    accumMs += frameMs;
    if (accumMs <= almostASecondMs) {
        return false;
    }
    counted = std::exchange(frames, 0);
    accumMs = 0;
    return true;
}

void FrameRate::pace() {
    if (frameMs >= minMs) {
        return;
    }
    const std::uint32_t restMs = minMs - frameMs;
    SDL_Delay(restMs);
    ManagerSDLTime::totals().sleptMs += static_cast<std::int32_t>(restMs);
    accumMs += currentTick() - frameEnd;
}

} // namespace Vantrel
