#pragma once

#include "Capture/CaptureStream.h"

#include <memory>

namespace quillbox {

class PipeWireStream;
class ScreenCastPortal;

/// Captures one monitor of a Wayland desktop through the desktop portal and PipeWire: the one that the user permits,
/// pointer included, or the one on which the region was selected. The frames keep their size: when the monitor gets
/// another one, they show the same points of it, and black where it has none any more.
class PortalStream : public CaptureStream {
public:
    PortalStream();
    ~PortalStream() override;

    QCoro::Task<> start(CaptureRegion region, FrameSink sink) override;
    QCoro::Task<> stop() override;

private:
    std::shared_ptr<ScreenCastPortal> m_portal;
    std::unique_ptr<PipeWireStream> m_pictures;
};

} // namespace quillbox
