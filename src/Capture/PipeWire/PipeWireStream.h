#pragma once

#include "Capture/CaptureStream.h"
#include "Capture/PipeWire/StreamPicture.h"
#include "Platform/FileDescriptor.h"

#include <QFuture>

#include <cstdint>
#include <functional>
#include <memory>

namespace quillbox {

/// Receives one region of a PipeWire video stream, on a thread of its own. Pictures are delivered when the region has
/// changed, at most one in each thirtieth of a second, counted from the first one.
class PipeWireStream {
public:
    struct Source {
        FileDescriptor remote; ///< a connection to PipeWire, not used yet
        std::uint32_t node = 0;
        /// Prepares for the two below. Called on the stream's thread when the first format is agreed on.
        std::function<void()> connect;
        /// The size in points of what it shows; asked on the stream's thread, at the first picture and when the
        /// pictures' size has changed.
        StreamPicture::PointsOf points;
        /// Has something in it change. Called on the stream's thread as long as no first picture comes, or none of
        /// another format.
        std::function<void()> repaint;
        /// Has those three wait for nothing any more. Called once at most, on the thread that destroys the stream.
        std::function<void()> stop;
    };
    using StartOutcome = std::optional<CaptureError>; // none: it runs

    /// Begins to connect.
    /// @param sink  Called from the stream's thread, or from that of end(), never by both at once. The first picture
    ///              comes before started() has finished.
    PipeWireStream(Source source, CaptureRegion region, FrameSink sink);
    /// Returns when the sink can't be called any more.
    ~PipeWireStream();
    PipeWireStream(const PipeWireStream&) = delete;
    PipeWireStream& operator=(const PipeWireStream&) = delete;

    /// Finishes with the first picture, or with the reason why there is none.
    [[nodiscard]] QFuture<StartOutcome> started();

    /// Ends the stream as if it had broken for this reason.
    void end(const CaptureError& reason);

private:
    class Connection;
    std::unique_ptr<Connection> m_connection;
};

} // namespace quillbox
