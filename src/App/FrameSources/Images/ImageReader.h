#pragma once

#include "App/FrameSources/ByteSource.h"
#include "App/FrameSources/FrameReadError.h"
#include "App/FrameSources/Images/AnimationTimeline.h"
#include "Encoding/Pixels/PixelTypes.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace quillbox {

/// Reads image files with Qt's image plugins. Colours come in sRGB, whatever profile the file has, and opaque, laid on
/// a background. Needs a QCoreApplication, to find the plugins, but no display. While a decoder runs, this process's
/// standard error leads nowhere. One thread at a time.
namespace ImageReader {

/// The picture, or the first one of several, upright as its metadata says.
/// @param frame  The number of this image in the clip, from 1, for messages.
/// @throws FrameReadError  also where the file is cut off, so that a part of the picture would be missing.
[[nodiscard]] RGBAFrame readOne(FileByteSource& source, RGBColor background, std::int64_t frame);

struct Animation {
    std::vector<AnimationTimeline::TimedFrame> frames; ///< at least one
    std::optional<FrameReadError> flaw;                ///< why there are no more, if the file should hold more
};

/// Every picture of an animation (GIF, APNG, WebP) with its display time; the one picture of anything else. Equal
/// neighbours share their pixels. @throws FrameReadError  no picture can be read.
[[nodiscard]] Animation readAll(FileByteSource& source, RGBColor background);

} // namespace ImageReader
} // namespace quillbox
