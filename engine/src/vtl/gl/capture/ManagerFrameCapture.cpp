#include "vtl/gl/capture/ManagerFrameCapture.h"

#include "vtl/base/Pause.h"
#include "vtl/base/Report.h"
#include "vtl/gl/ManagerWindowing.h"
#include "vtl/gl/capture/BackBufferReading.h"
#include "vtl/gl/capture/FrameCaptureWriter.h"

#include <SDL_image.h>
#include <algorithm>
#include <filesystem>
#include <new>
#include <system_error>
#include <utility>

namespace Vantrel {
namespace {

/** The window's back buffer, which there must be; throws `std::bad_alloc`. */
void readWindow(VantrelFrameCapture& frame) {
    const int width = ManagerWindowing::getWindowWidth();
    const int height = ManagerWindowing::getWindowHeight();
    const std::size_t size =
        static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * bytesOfCapturedPixel;
    auto data = std::make_unique_for_overwrite<std::uint8_t[]>(size);
    int drawnWidth = 0;
    int drawnHeight = 0;
    SDL_GL_GetDrawableSize(ManagerWindowing::getWindow(), &drawnWidth, &drawnHeight);
    if (drawnWidth < width || drawnHeight < height) {
        std::fill_n(data.get(), size, std::uint8_t{0}); // black where GL has nothing to tell
    }
    readBackBuffer(width, height, {data.get(), size});
    frame.setFrameData(static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height),
                       static_cast<std::uint32_t>(bytesOfCapturedPixel), std::move(data));
}

/** Runs `work`, and reports where there is no memory for it; `work` says whether all went well. */
template <class Work>
bool reportingWantOfMemory(Work&& work) {
    try {
        return work();
    } catch (const std::bad_alloc&) {
        Report() << "ERROR: ManagerFrameCapture: there is no memory for a frame of "
                 << ManagerWindowing::getWindowWidth() << "x" << ManagerWindowing::getWindowHeight()
                 << "...\n";
        return false;
    }
}

/** The first name that no file has; empty, with a report, where all are taken. */
std::string generateFileName() {
    constexpr int namesAtMost = 100000;
    constexpr std::size_t digitsAtLeast = 4;
    for (int n = 0; n < namesAtMost; ++n) {
        const std::string digits = std::to_string(n);
        const std::string name = "./VANTRELFrameCap_" +
                                 std::string(digitsAtLeast - std::min(digits.size(), digitsAtLeast), '0') +
                                 digits + ".bmp";
        std::error_code error;
        if (!std::filesystem::exists(name, error)) {
            return name;
        }
    }
    Report() << "ERROR: ManagerFrameCapture: all names for frames are taken, up to ./VANTRELFrameCap_"
             << namesAtMost - 1 << ".bmp...\n";
    return {};
}

} // namespace

ManagerFrameCapture::State ManagerFrameCapture::state;

void ManagerFrameCapture::init() {
    shutdown();
    state.isStarted = true;
    Pause::setLastDuty(finishSaving);
}

void ManagerFrameCapture::shutdown() {
    state = State{};
    Pause::setLastDuty(nullptr);
}

bool ManagerFrameCapture::canCapture() {
    if (!state.isStarted || !ManagerWindowing::isWindowExisting()) {
        Report() << "ERROR: ManagerFrameCapture: "
                 << (state.isStarted ? "there is no window to capture" : "init() hasn't been called")
                 << "...\n";
        return false;
    }
    return true;
}

int ManagerFrameCapture::captureFrame() {
    const bool isCaptured = canCapture() && reportingWantOfMemory([] {
                                auto frame = std::make_unique<VantrelFrameCapture>();
                                readWindow(*frame);
                                state.frames.push_back(std::move(frame));
                                return true;
                            });
    return isCaptured ? static_cast<int>(state.frames.size()) - 1 : -1;
}

bool ManagerFrameCapture::saveFrame(const std::string& fileName, bool deleteAfterSaving, int* index) {
    const std::string name = fileName.empty() ? generateFileName() : fileName;
    const int kept = name.empty() || deleteAfterSaving ? -1 : captureFrame();
    if (index != nullptr) {
        *index = kept;
    }
    if (deleteAfterSaving) {
        return !name.empty() && canCapture() &&
               reportingWantOfMemory([&name] { return saveInBackground(name); });
    }
    finishSaving(); // the same file may be being written
    const VantrelFrameCapture* const frame = getFrame(kept);
    return frame != nullptr && frame->saveToFile(name);
}

bool ManagerFrameCapture::saveInBackground(const std::string& fileName) {
    FrameCaptureWriter::Capture captured;
    readWindow(captured.frame);
    captured.file = CaptureFile(fileName);
    if (!captured.file.isOpen()) {
        return false;
    }
    FrameCaptureWriter* const writer = findWriter();
    if (writer == nullptr) {
        return captured.frame.saveToFile(captured.file);
    }
    writer->write(std::move(captured));
    return true;
}

FrameCaptureWriter* ManagerFrameCapture::findWriter() {
    if (!state.writer) {
        IMG_Init(IMG_INIT_PNG); // here, since it isn't made for two threads
        try {
            state.writer = std::make_unique<FrameCaptureWriter>();
        } catch (const std::system_error& failure) {
            Report() << "WARNING: ManagerFrameCapture: frames are saved while the viewer waits: "
                     << failure.what() << "...\n";
        }
    }
    return state.writer.get();
}

void ManagerFrameCapture::finishSaving() {
    if (state.writer) {
        state.writer->finish();
    }
}

bool ManagerFrameCapture::isIndex(int index) {
    return index >= 0 && static_cast<std::size_t>(index) < state.frames.size();
}

bool ManagerFrameCapture::deleteFrame(int index) {
    if (!isIndex(index)) {
        return false;
    }
    state.frames.erase(state.frames.begin() + index);
    return true;
}

void ManagerFrameCapture::deleteAllFrames() {
    state.frames.clear();
}

VantrelFrameCapture* ManagerFrameCapture::getFrame(int index) {
    return isIndex(index) ? state.frames[static_cast<std::size_t>(index)].get() : nullptr;
}

} // namespace Vantrel
