#include "vtl/base/ManagerSDLTime.h"

#include "vtl/base/Report.h"
#include "vtl/base/ReportedObject.h"
#include "vtl/base/TickSource.h"

#include <array>
#include <functional>
#include <map>
#include <utility>

namespace Vantrel {
namespace {

struct Clock {
    std::array<std::uint32_t, 20> stopwatches{};
    std::uint32_t lastFrameTick = 0;
    std::uint32_t frameDeltaMs = 0;
    std::uint32_t previousSimTick = 0;
    std::uint32_t currentSimTick = 0;
    std::uint32_t simDeltaMs = 0;
    std::uint32_t runStartTick = 0;
    std::uint32_t loopCount = 0;
    StageTotals totals;
    std::map<const ReportedObject*, ObjectTimes, std::less<>> objectTimes;
};

// Never destroyed: an object that outlives `main` still asks to be forgotten.
Clock& clock() {
    static Clock* const only = new Clock;
    return *only;
}

float asFloat(std::int32_t number) {
    return static_cast<float>(number);
}

/** Before the first frame this divides by zero, and the report shows what comes of it. */
float perLoop(std::int32_t total) {
    return asFloat(total) / static_cast<float>(clock().loopCount);
}

void reportObject(ReportText& out, const ReportedObject& object, const ObjectTimes& times) {
    out << "Object " << static_cast<const void*>(&object) << "\t\tlabel: '" << object.getLabel() << "'"
        << "\t\t woID: " << object.getID() << "\n"
        << "Render Time: " << times.renderMs << "\tRenderSelect Time: " << times.renderSelectMs << "\n"
        << "UFrcJt Time: " << times.forcesAndJointsMs
        << "\tUPosOrien Time: " << times.positionAndOrientationMs << "\n"
        << "GLUpdate Time: " << times.glUpdateMs << "\tOnUpdate Time: " << times.onUpdateMs << "\n";
    if (times.renderCount != 0) {
        out << "Average Time Spent in Render: " << asFloat(times.renderMs) / asFloat(times.renderCount)
            << "\n";
    }
    if (times.renderSelectCount != 0) {
        out << "Average Time Spent in Render Selection: "
            << asFloat(times.renderSelectMs) / asFloat(times.renderSelectCount) << "\n";
    }
    out << "Total: \t\t\t\t\t" << times.totalMs() << "\n" << std::string(52, '-') << "\n";
}

void reportStage(ReportText& out, const char* label, std::int32_t total) {
    out << label << total << "\t" << perLoop(total) << "\n";
}

void reportStages(ReportText& out, const StageTotals& totals, std::int32_t renderingObjectsMs) {
    reportStage(out, "Time Spent Preserving State (total, per loop):\t", totals.preservingStateMs);
    reportStage(out, "Time Spent Sorting List (total, per loop):\t", totals.sortingMs);
    reportStage(out, "Time Spent Processing Errors (total, per loop):\t", totals.errorsMs);
    reportStage(out, "Time Spent in Physics Engine (total, per loop):\t", totals.physicsMs);
    reportStage(out, "Time Spent Synchronizing Lights (total, per loop):\t", totals.lightsMs);
    reportStage(out, "Time Spent Rendering GUI (total, per loop):\t", totals.guiMs);
    reportStage(out, "Time Spent Rendering Shadows (total, per loop):\t", totals.shadowsMs);
    reportStage(out, "Time Spent Only in Rendering Objects (total, per loop):\t", renderingObjectsMs);
    reportStage(out, "Time Spent Flushing (total, per loop):\t", totals.flushingMs);
    reportStage(out, "Time Spent Swapping (total, per loop):\t", totals.swappingMs);
    reportStage(out, "Time Spent Handling Events (total, per loop):\t", totals.eventsMs);
    reportStage(out, "Time Spent RenderingCamera (total, per loop):\t", totals.renderingCameraMs);
    reportStage(out, "Time Spent RenderingAxes (total, per loop):\t", totals.renderingAxesMs);
    reportStage(out, "Time Spent UpdatingCamera (total, per loop):\t", totals.updatingCameraMs);
}

/** Everything but the two large groups, which contain these. */
std::int32_t accountedMs(const StageTotals& t, std::int32_t objectsMs) {
    return objectsMs + t.preservingStateMs + t.sortingMs + t.errorsMs + t.physicsMs + t.lightsMs + t.guiMs +
           t.shadowsMs + t.flushingMs + t.swappingMs + t.eventsMs + t.renderingCameraMs + t.renderingAxesMs +
           t.updatingCameraMs + t.sleptMs;
}

} // namespace

void ManagerSDLTime::init() {
    const std::uint32_t now = currentTick();
    clock().currentSimTick = now;
    clock().previousSimTick = now;
    clock().lastFrameTick = now;
    clock().runStartTick = now;
    clock().simDeltaMs = 0;
}

void ManagerSDLTime::startStopwatch(Stopwatch id) {
    clock().stopwatches[static_cast<std::size_t>(id)] = currentTick();
}

std::int32_t ManagerSDLTime::readStopwatch(Stopwatch id) {
    return static_cast<std::int32_t>(currentTick() - clock().stopwatches[static_cast<std::size_t>(id)]);
}

std::int32_t ManagerSDLTime::restartStopwatch(Stopwatch id) {
    std::uint32_t& start = clock().stopwatches[static_cast<std::size_t>(id)];
    const std::uint32_t now = currentTick();
    return static_cast<std::int32_t>(now - std::exchange(start, now));
}

std::uint32_t ManagerSDLTime::getFrameDeltaMs() {
    return clock().frameDeltaMs;
}

std::uint32_t ManagerSDLTime::getSimDeltaMs() {
    return clock().simDeltaMs;
}

void ManagerSDLTime::stepFrameClock() {
    const std::uint32_t now = currentTick();
    clock().frameDeltaMs = now - clock().lastFrameTick;
    clock().lastFrameTick = now;
}

void ManagerSDLTime::stepSimClock() {
    clock().previousSimTick = clock().currentSimTick;
    clock().currentSimTick = currentTick();
    clock().simDeltaMs = clock().currentSimTick - clock().previousSimTick;
}

void ManagerSDLTime::startRun() {
    clock().runStartTick = currentTick();
}

void ManagerSDLTime::countLoop() {
    ++clock().loopCount;
}

StageTotals& ManagerSDLTime::totals() {
    return clock().totals;
}

ObjectTimes& ManagerSDLTime::timesOf(const ReportedObject& object) {
    if (object.times == nullptr) {
        object.times = &clock().objectTimes[&object];
    }
    return *object.times;
}

void ManagerSDLTime::forget(const ReportedObject& object) {
    clock().objectTimes.erase(&object);
    object.times = nullptr;
}

void ManagerSDLTime::printTimeReport() {
    const StageTotals& totals = clock().totals;
    std::int32_t renderingObjectsMs = 0;
    std::int32_t objectsMs = 0;
    Report out;
    out << "Time Diagnostic Information: \n";
    for (const auto& [object, times] : clock().objectTimes) {
        reportObject(out, *object, times);
        renderingObjectsMs += times.renderMs;
        objectsMs += times.totalMs();
    }
    out << "Report for " << clock().loopCount << " total of loops.\n";
    reportStages(out, totals, renderingObjectsMs);

    const auto runtimeMs = static_cast<std::int32_t>(currentTick() - clock().runStartTick);
    const auto percentOfRuntime = [runtimeMs](std::int32_t part) {
        return 100.0F * asFloat(part) / asFloat(runtimeMs);
    };
    out << "Total runtime: " << runtimeMs << "\n"
        << "GrandTotal of object time:\t" << objectsMs << "\t" << percentOfRuntime(objectsMs)
        << "%\t Per Loop: " << perLoop(objectsMs) << "\n"
        << "Time slept: \t" << totals.sleptMs << "\n"
        << "Large group breakdown: \n";
    reportStage(out, "Time spent in Render Loop (total, per loop):\t", totals.renderLoopMs);
    reportStage(out, "Time spent in Update World (total, per loop):\t", totals.updateWorldMs);
    const std::int32_t accounted = accountedMs(totals, objectsMs);
    out << "Time spent accounted for:\t" << accounted << "\t" << percentOfRuntime(accounted) << "%\n"
        << "Time spent unaccounted for:\t" << runtimeMs - accounted << "\t"
        << percentOfRuntime(runtimeMs - accounted) << "%\n";
}

} // namespace Vantrel
