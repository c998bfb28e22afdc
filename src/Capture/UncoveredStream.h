#pragma once

#include "Capture/CaptureStream.h"
#include "Capture/OverlayRemains.h"

#include <functional>
#include <memory>

namespace quillbox {

/// A stream that begins with the first picture in which nothing is left of an overlay that was hidden just before.
/// Where that can't be told, or does not happen, it begins nevertheless within two seconds.
class UncoveredStream : public CaptureStream {
public:
    /// @param stream         What is captured.
    /// @param remains        Knows pictures of the region that it is to be started with.
    /// @param hiddenAt       When the overlay was hidden.
    /// @param onRemainsLeft  Called on the thread of start() where the first picture still shows something of the
    ///                       overlay, as far as can be told. May be empty.
    UncoveredStream(std::unique_ptr<CaptureStream> stream, OverlayRemains remains, CaptureClock::time_point hiddenAt,
        std::function<void()> onRemainsLeft, std::function<CaptureClock::time_point()> now = &CaptureClock::now);
    ~UncoveredStream() override;

    QCoro::Task<> start(CaptureRegion region, FrameSink sink) override;
    bool requestPicture(CaptureClock::time_point moment) override { return m_stream->requestPicture(moment); }
    QCoro::Task<> stop() override;

private:
    class Gate;

    std::shared_ptr<Gate> m_gate;
    std::unique_ptr<CaptureStream> m_stream;
    std::function<void()> m_onRemainsLeft;
};

} // namespace quillbox
