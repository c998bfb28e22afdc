#pragma once

#include "App/FrameSources/ByteSource.h"
#include "App/FrameSources/FrameConsumer.h"
#include "App/FrameSources/SourceColors.h"
#include "Encoding/Parallel.h"

namespace quillbox {

/// Reads YUV4MPEG2 streams, as FFmpeg's yuv4mpegpipe writes them.
/// @see yuv4mpeg(5) of the mjpegtools.
namespace Y4MReader {

/// Whether the input starts like a YUV4MPEG2 stream. Nothing is consumed. @throws FrameReadError
[[nodiscard]] bool recognizes(ByteSource& source);

/// Hands over the stream's rate and every frame up to the end of the input. As many pictures at a time are converted as
/// there may be threads; one that equals the one before it is not converted again and shares its pixels.
/// @throws FrameReadError  something that isn't understood, no frame, or an end inside a frame: once all whole frames
///         before it have been handed over.
void read(ByteSource& source, const SourceColors& colors, FrameConsumer& receiver, Parallelism parallelism = {});

} // namespace Y4MReader
} // namespace quillbox
