#pragma once

#include "App/FrameSources/ByteSource.h"
#include "App/FrameSources/FrameConsumer.h"
#include "Encoding/PixelSize.h"

namespace quillbox {

/// Reads raw video: RGBA frames of one size, four bytes a pixel, rows top-down, nothing between rows or frames.
namespace RawReader {

/// Hands over every frame up to the end of the input; equal neighbours share their pixels.
/// @throws FrameReadError  a side outside 1…65535, no frame, or an input that ends inside a frame. The length of an
///         input that tells it is checked before anything is read.
void read(ByteSource& source, PixelSize size, FrameConsumer& receiver);

} // namespace RawReader
} // namespace quillbox
