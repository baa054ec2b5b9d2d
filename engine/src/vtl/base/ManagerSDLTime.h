#pragma once

#include <cstdint>

namespace Vantrel {

class ReportedObject;

/** The stages of the main loop that add up their time, in milliseconds, for the time report. */
struct StageTotals {
    std::int32_t preservingStateMs = 0;
    std::int32_t sortingMs = 0;
    std::int32_t errorsMs = 0;
    /** Nothing adds to it: there is no physics engine. */
    std::int32_t physicsMs = 0;
    std::int32_t lightsMs = 0;
    std::int32_t guiMs = 0;
    std::int32_t shadowsMs = 0;
    std::int32_t flushingMs = 0;
    std::int32_t swappingMs = 0;
    std::int32_t eventsMs = 0;
    std::int32_t renderingCameraMs = 0;
    std::int32_t renderingAxesMs = 0;
    std::int32_t updatingCameraMs = 0;
    std::int32_t sleptMs = 0;
    std::int32_t renderLoopMs = 0;
    std::int32_t updateWorldMs = 0;
};

/** The time that one world object has taken so far, in milliseconds. */
struct ObjectTimes {
    std::int32_t renderMs = 0;
    std::int32_t renderSelectMs = 0;
    std::int32_t glUpdateMs = 0;
    /** The physics path only, so 0. */
    std::int32_t forcesAndJointsMs = 0;
    std::int32_t positionAndOrientationMs = 0;
    std::int32_t onUpdateMs = 0;
    std::int32_t renderCount = 0;
    std::int32_t renderSelectCount = 0;

    std::int32_t totalMs() const {
        return renderMs + renderSelectMs + glUpdateMs + forcesAndJointsMs + positionAndOrientationMs +
               onUpdateMs;
    }
};

/**
 * The stopwatches in use. Measurements that nest use different ones.
 */
enum class Stopwatch : std::uint8_t {
    object = 0,         ///< one object in a walk of the world
    stage = 1,          ///< the stages of the renderer
    stageOfObjects = 2, ///< a stage that contains measurements of objects
    objectOnUpdate = 5, ///< one object's `onUpdate`
    mainLoop = 10,      ///< events, world update and render of the main loop
};

/**
 * The engine's clock: frame and simulation deltas, stopwatches, and the totals that the time report is made
 * of. All times are whole milliseconds. Main thread.
 */
class ManagerSDLTime {
public:
    /** Takes the present tick as the start of everything. The totals live as long as the process. */
    static void init();

    static void startStopwatch(Stopwatch id);
    /** Milliseconds since the last start; stops and resets nothing. */
    static std::int32_t readStopwatch(Stopwatch id);
    /** The same, and starts it again. */
    static std::int32_t restartStopwatch(Stopwatch id);

    /** Milliseconds between the last two world updates. */
    static std::uint32_t getFrameDeltaMs();
    /** Milliseconds between the last two simulation steps. */
    static std::uint32_t getSimDeltaMs();

    /** Takes the time since the previous call as the frame delta; once per frame. */
    static void stepFrameClock();
    /** Takes the time since the previous call as the simulation delta; once per pass over the objects. */
    static void stepSimClock();
    /** The main loop begins here: "Total runtime" counts from now. */
    static void startRun();
    static void countLoop();

    static StageTotals& totals();
    /** The record of an object, made at its first use. */
    static ObjectTimes& timesOf(const ReportedObject& object);
    /** Drops the record of an object that is being destroyed. */
    static void forget(const ReportedObject& object);

    /** Reports everything gathered so far. */
    static void printTimeReport();
};

} // namespace Vantrel
