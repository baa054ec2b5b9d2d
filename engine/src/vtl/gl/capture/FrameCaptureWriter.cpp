#include "vtl/gl/capture/FrameCaptureWriter.h"

#include "vtl/base/Report.h"
#include "vtl/base/ScopedSignalsBlocked.h"

#include <SDL.h>
#include <exception>
#include <utility>

namespace Vantrel {
namespace {

constexpr std::size_t waitingAtMost = 8;

void writeReportingFailures(FrameCaptureWriter::Capture capture) {
    try {
        capture.frame.saveToFile(capture.file);
    } catch (const std::exception& failure) {
        Report() << "ERROR: The frame capture '" << capture.file.getName()
                 << "' couldn't be written: " << failure.what() << "...\n";
    }
}

} // namespace

FrameCaptureWriter::FrameCaptureWriter() {
    const ScopedSignalsBlocked signalsBlocked;
    thread = std::thread([this] {
        run();
        SDL_TLSCleanup(); // SDL keeps its latest error for each thread, and clears up after its own alone
    });
}

FrameCaptureWriter::~FrameCaptureWriter() {
    {
        const std::scoped_lock lock(mutex);
        isEnding = true;
    }
    changed.notify_all();
    thread.join();
}

void FrameCaptureWriter::write(Capture capture) {
    std::unique_lock lock(mutex);
    changed.wait(lock, [this] { return waiting.size() < waitingAtMost; });
    waiting.push_back(std::move(capture));
    changed.notify_all();
}

void FrameCaptureWriter::finish() {
    std::unique_lock lock(mutex);
    changed.wait(lock, [this] { return waiting.empty() && !isWriting; });
}

void FrameCaptureWriter::run() {
    std::unique_lock lock(mutex);
    for (;;) {
        changed.wait(lock, [this] { return isEnding || !waiting.empty(); });
        if (waiting.empty()) {
            return;
        }
        Capture next = std::move(waiting.front());
        waiting.pop_front();
        isWriting = true;
        changed.notify_all();
        lock.unlock();
        writeReportingFailures(std::move(next));
        lock.lock();
        isWriting = false;
        changed.notify_all();
    }
}

} // namespace Vantrel
