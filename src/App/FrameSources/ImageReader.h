#pragma once

#include "App/FrameSources/AnimationTimeline.h"
#include "App/FrameSources/ByteSource.h"
#include "Encoding/PixelTypes.h"

#include <cstdint>
#include <vector>

namespace quillbox {

/// Reads image files with Qt's image plugins. Transparency is not resolved: a pixel keeps the colour that the file
/// gives it. Needs a QCoreApplication, to find the plugins, but no display. While a decoder runs, this process's
/// standard error leads nowhere. One thread at a time.
namespace ImageReader {

/// The picture, or the first one of several, upright as its metadata says.
/// @param frame  The number of this image in the clip, from 1, for messages.
/// @throws FrameReadError
[[nodiscard]] RGBAFrame readOne(FileByteSource& source, std::int64_t frame);

/// Every picture of an animation with its display time; the one picture of anything else. Equal neighbours share
/// their pixels. @throws FrameReadError
[[nodiscard]] std::vector<AnimationTimeline::TimedFrame> readAll(FileByteSource& source);

} // namespace ImageReader
} // namespace quillbox
