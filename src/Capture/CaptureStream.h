#pragma once

#include "Capture/CaptureError.h"
#include "Capture/CaptureRegion.h"
#include "Encoding/Pixels/PixelTypes.h"

#include <QCoro/QCoroTask>

#include <chrono>
#include <functional>
#include <memory>

namespace quillbox {

using CaptureClock = std::chrono::steady_clock;

/// Where a stream's pictures go. Both functions are called from one back-end thread at a time, never from inside a call
/// of start() or stop(), and must neither block nor throw.
struct FrameSink {
    /// A picture, and the moment it was on the screen. Moments never go back.
    std::function<void(RGBAFrame frame, CaptureClock::time_point shownAt)> frame;
    /// The source went away; nothing follows. Called at most once, only after start() has succeeded.
    std::function<void(CaptureError reason)> ended;
};

/// One running grab of one rectangle of the main display: a platform back end, without recording state. Used once:
/// start(), then stop(). It may be destroyed at any time from the thread that made it, also while one of its tasks is
/// under way: the destructor returns when the sink can't be called any more, and the task then finishes on its own.
class CaptureStream {
public:
    CaptureStream() = default;
    CaptureStream(const CaptureStream&) = delete;
    CaptureStream& operator=(const CaptureStream&) = delete;
    virtual ~CaptureStream() = default;

    /// Begins to deliver pictures of `region`, cut to the display: one at once, then one when something in it has
    /// changed, at most 30 a second, all of one size. Finishes once the capture runs.
    /// @throws CaptureError  nothing runs then.
    virtual QCoro::Task<> start(CaptureRegion region, FrameSink sink) = 0;

    /// Asks for a picture of what is on the screen at `moment` or later, also if it is the one before. Comes after
    /// start() has succeeded; a later call replaces an earlier one that was not answered.
    /// @return whether this source has pictures on demand; else none is to be expected.
    virtual bool requestPicture(CaptureClock::time_point moment);

    /// Ends the capture and finishes when the sink has been called for the last time. May be called more than once, and
    /// without a start.
    /// @throws CaptureError  the platform refused; the sink is not called any more even so.
    virtual QCoro::Task<> stop() = 0;
};

inline bool CaptureStream::requestPicture(CaptureClock::time_point /*moment*/)
{
    return false;
}

} // namespace quillbox
