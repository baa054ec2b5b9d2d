#pragma once

#include <cstdint>

namespace Vantrel {

/** Counts frames and paces them. */
class FrameRate {
public:
    /** `minMs` is the shortest time of a frame, in milliseconds. */
    explicit FrameRate(std::uint32_t shortestFrameMs) : minMs(shortestFrameMs) {}

    void startFrame();
    /** Counts the frame; true when a second is full: then `framesInSecond` is its count. */
    bool endFrame();
    /** Sleeps for what the frame is shorter than it should be. */
    void pace();

    /** Frames of the second that has just ended. */
    std::uint32_t framesInSecond() const { return counted; }
    /** Time of the last frame without its sleep, in milliseconds. */
    std::uint32_t lastFrameMs() const { return frameMs; }

private:
    std::uint32_t minMs;
    std::uint32_t frameStart = 0;
    std::uint32_t frameEnd = 0;
    std::uint32_t frameMs = 0;
    std::uint32_t accumMs = 0;
    std::uint32_t frames = 0;
    std::uint32_t counted = 0;
};

} // namespace Vantrel
