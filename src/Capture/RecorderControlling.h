#pragma once

#include "Capture/CaptureRegion.h"
#include "Capture/Recording.h"

#include <QCoro/QCoroTask>

namespace quillbox {

/// What the recording workflow asks of a recorder. Used by reference only. Thread: main.
class RecorderControlling {
public:
    RecorderControlling() = default;
    RecorderControlling(const RecorderControlling&) = delete;
    RecorderControlling& operator=(const RecorderControlling&) = delete;
    virtual ~RecorderControlling() = default;

    /// True between a successful start() and the stop() that follows it.
    [[nodiscard]] virtual bool isRecording() const = 0;

    /// Begins to record `region` and finishes once recording runs. While already recording it finishes at once and
    /// changes nothing.
    /// @throws StreamRecorder::RecorderError  there is no display.
    /// @throws CaptureError  any other failure of the capture; the recorder then stays as it was.
    virtual QCoro::Task<> start(CaptureRegion region) = 0;

    /// Ends the recording. Never fails.
    /// @return Every frame recorded since the last successful start, oldest first, 30 a second. When not recording:
    ///         the frames still held, without further effect.
    virtual QCoro::Task<Recording> stop() = 0;
};

} // namespace quillbox
