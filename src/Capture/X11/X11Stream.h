#pragma once

#include "Capture/CaptureStream.h"

#include <memory>

namespace quillbox {

/// Captures the main display of the X server that DISPLAY names, on a connection and a thread of its own: the primary
/// RandR monitor, else the first one, else the whole screen. Its scale is the toolkit's where that shows windows: what
/// was dragged out there is meant in its points. Looks 30 times a second, grabs only what XDamage reports (without that
/// extension: everything, and compares), and draws the pointer over it as XFixes describes it (without: no pointer). A
/// part of the region that leaves the screen when the screen shrinks is black from then on.
class X11Stream : public CaptureStream {
public:
    X11Stream();
    ~X11Stream() override;

    QCoro::Task<> start(CaptureRegion region, FrameSink sink) override;
    bool requestPicture(CaptureClock::time_point moment) override;
    QCoro::Task<> stop() override;

private:
    class Worker;
    std::unique_ptr<Worker> m_worker;
};

} // namespace quillbox
