#pragma once

#include "App/FrameSources/ByteSource.h"
#include "App/FrameSources/FrameConsumer.h"
#include "Encoding/Parallel.h"
#include "Encoding/Pixels/PixelSize.h"
#include "Encoding/Pixels/PixelTypes.h"

#include <cstdint>
#include <optional>

namespace quillbox {

/// The bytes of a raw pixel, in their order.
enum class RawFormat : std::uint8_t { rgba, bgra, rgb, bgr };

/// Reads raw video: frames of one size, rows top-down, nothing between rows or frames.
namespace RawReader {

/// What to do with an input whose length is no multiple of a frame's.
enum class IfCut : std::uint8_t {
    RefuseAtOnce, ///< where the length can be told before anything is read
    ReadFirst,    ///< hand over the whole frames, then complain
};

struct Options {
    RawFormat format = RawFormat::rgba;
    std::optional<RGBColor> background{}; ///< what a fourth byte, then alpha, lets through; none: it is not looked at
    IfCut ifCut = IfCut::RefuseAtOnce;
    Parallelism parallelism{};
};

/// Hands over every frame up to the end of the input; equal neighbours share their pixels.
/// @throws FrameReadError  a side outside 1…65535, no frame, or an input that ends inside a frame.
void read(ByteSource& source, PixelSize size, FrameConsumer& receiver, const Options& options = {});

} // namespace RawReader
} // namespace quillbox
