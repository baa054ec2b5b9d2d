#pragma once

#include "vtl/gl/capture/CaptureFile.h"
#include "vtl/gl/capture/VantrelFrameCapture.h"

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>
#include <thread>

namespace Vantrel {

/**
 * Writes captured frames to their files, one after the other in the order of their arrival, on a thread of
 * its own: encoding one takes longer than many frames. What goes wrong is reported.
 */
class FrameCaptureWriter {
public:
    struct Capture {
        VantrelFrameCapture frame;
        CaptureFile file;
    };

    /** Starts the thread, or throws `std::system_error`. */
    FrameCaptureWriter();
    FrameCaptureWriter(const FrameCaptureWriter&) = delete;
    FrameCaptureWriter& operator=(const FrameCaptureWriter&) = delete;
    /** Ends when everything is written. */
    ~FrameCaptureWriter();

    /** Hands a frame over; while too many wait, so does the caller. */
    void write(Capture capture);
    /** Returns when everything is written. */
    void finish();

private:
    void run();

    std::mutex mutex;
    /** Of any of the next three. */
    std::condition_variable changed;
    std::deque<Capture> waiting;
    bool isWriting = false;
    bool isEnding = false;
    std::thread thread;
};

} // namespace Vantrel
