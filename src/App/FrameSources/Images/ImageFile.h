#pragma once

#include "Encoding/Bytes.h"

#include <cstdint>
#include <span>

namespace quillbox {

/// Looks at how a file of pictures is put together, without decoding any. Stateless; thread: any.
/// @see GIF89a; PNG (third edition); ITU-T T.81, annex B, for JPEG; the WebP container format.
namespace ImageFile {

enum class Kind : std::uint8_t {
    other, ///< an image of another kind, or none
    png,
    animatedPNG,
    gif,
    jpeg,
    webp,
    bmp,
    video, ///< MP4, QuickTime, Matroska, WebM, AVI, Ogg, FLV, MPEG or ASF
};

/// By the first bytes; an animated PNG by its chunks up to the first picture.
[[nodiscard]] Kind kindOf(std::span<const std::uint8_t> file);

/// Whether it is a PNG that has no embedded profile; perhaps numbers that stand for one.
[[nodiscard]] bool isPNGWithoutProfile(std::span<const std::uint8_t> file);

struct Extent {
    bool isCutOff = false;        ///< the file ends before its format says so, or what it has can't be its pictures
    std::int64_t wholeFrames = 0; ///< pictures that are there from their first to their last byte
    std::size_t wholeBytes = 0;   ///< the end of the last of them
};

/// How much of the file is there. Kinds that don't tell (`other`) count as whole.
[[nodiscard]] Extent extentOf(std::span<const std::uint8_t> file, Kind kind);

/// A file that ends behind its last whole frame. @pre the extent is the file's, and has a whole frame.
[[nodiscard]] Bytes withoutCutFrame(std::span<const std::uint8_t> file, Kind kind, const Extent& extent);

} // namespace ImageFile
} // namespace quillbox
