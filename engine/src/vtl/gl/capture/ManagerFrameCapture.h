#pragma once

#include "vtl/gl/capture/FrameCaptureWriter.h"
#include "vtl/gl/capture/VantrelFrameCapture.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace Vantrel {

/**
 * Takes pictures of the window and keeps them in memory or in files. What it takes is the frame that is being
 * drawn, before its swap: what has been swapped can't be read everywhere. Main thread.
 */
class ManagerFrameCapture {
public:
    static void init();
    /** Returns when every file is complete, and forgets all frames. */
    static void shutdown();

    /** The index of a new frame, which is kept; -1, with a report, without a window or memory for it. */
    static int captureFrame();
    /**
     * Captures a frame and saves it, under a name of its own where `fileName` is empty, as
     * `VantrelFrameCapture::saveToFile` does. With `deleteAfterSaving` it isn't kept, and is written
     * while the program goes on: true means then that the file could be opened. `index`, if not null, becomes
     * that of the frame, and -1 where none is kept. False, with a report, on failure.
     */
    static bool saveFrame(const std::string& fileName, bool deleteAfterSaving, int* index);
    /** Returns when every file is complete. */
    static void finishSaving();
    /** Those behind it move up. False where there is none of that index. */
    static bool deleteFrame(int index);
    static void deleteAllFrames();
    /** Null where there is none of that index. */
    static VantrelFrameCapture* getFrame(int index);
    static std::size_t getFrameCount() { return state.frames.size(); }

private:
    struct State {
        bool isStarted = false;
        std::vector<std::unique_ptr<VantrelFrameCapture>> frames;
        /** Made for the first frame that isn't kept. */
        std::unique_ptr<FrameCaptureWriter> writer;
    };

    static bool canCapture();
    static bool saveInBackground(const std::string& fileName);
    static FrameCaptureWriter* findWriter();
    static bool isIndex(int index);

    static State state;
};

} // namespace Vantrel
