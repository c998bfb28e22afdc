#pragma once

#include "Capture/CaptureStream.h"

#include <memory>

namespace quillbox {

class OutputWatch;
class PipeWireStream;
struct OpenCast;

/// Captures one monitor of a Wayland desktop through the desktop portal and PipeWire: the one that the user permits,
/// pointer included. The frames keep their size: when the monitor gets
/// another one, they show the same points of it, and black where it has none any more.
class PortalStream : public CaptureStream {
public:
    /// @param cast  The one on which the region was selected; null: the user is asked for one.
    explicit PortalStream(std::unique_ptr<OpenCast> cast = nullptr);
    ~PortalStream() override;

    QCoro::Task<> start(CaptureRegion region, FrameSink sink) override;
    QCoro::Task<> stop() override;

private:
    std::unique_ptr<OpenCast> m_cast;
    std::unique_ptr<PipeWireStream> m_pictures;
    std::unique_ptr<OutputWatch> m_watch; // of the monitor; ends the pictures
};

} // namespace quillbox
