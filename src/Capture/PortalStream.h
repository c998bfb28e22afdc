#pragma once

#include "Capture/CaptureStream.h"

#include <memory>

namespace quillbox {

class PipeWireStream;
class ScreenCastPortal;

/// Captures one monitor of a Wayland desktop through the desktop portal and PipeWire: the one that the user permits,
/// pointer included, or the one on which the region was selected. The region is in points that the monitor has when the
/// recording begins: when its pictures get another size, the region remains the same part of them, and the frames keep
/// their size.
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
