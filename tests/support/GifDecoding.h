#pragma once

#include "Encoding/Pixels/PixelTypes.h"

#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace quillbox::support {

/// One picture of a GIF as giflib reads it, not composed with the ones before.
struct DecodedFrame {
    std::int64_t left = 0;
    std::int64_t top = 0;
    std::int64_t width = 0;
    std::int64_t height = 0;
    std::vector<RGBColor> localColorTable; ///< empty if there is none
    Bytes indices;
    std::int64_t delayCentiseconds = 0;
    int disposalMethod = 0;
    bool interlaced = false;
    std::optional<std::uint8_t> transparentIndex;
};

struct DecodedGif {
    std::int64_t width = 0;
    std::int64_t height = 0;
    std::vector<RGBColor> globalColorTable; ///< empty if there is none
    std::optional<std::int64_t> loopCount;  ///< of the NETSCAPE2.0 extension
    std::vector<DecodedFrame> frames;
};

/// giflib refused the file; the message is giflib's.
class GifDecodingError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Decodes a whole file with giflib.
/// @throws GifDecodingError
[[nodiscard]] DecodedGif decodeWithGiflib(std::span<const std::uint8_t> file);

/// The first `count` indices that giflib finds in LZW `codes` of the given minimum code size. `count` is at least 1
/// and the product of two numbers up to 65535.
/// @throws GifDecodingError
[[nodiscard]] Bytes decodeLzwWithGiflib(std::span<const std::uint8_t> codes, int minCodeSize, std::int64_t count);

/// What giflib reads differently from what `frames` say, in words; empty when pixels, tables, sizes, delays and loop
/// count all agree. giflib can't read frames without pixels, so there must be none.
[[nodiscard]] std::string differenceSeenByGiflib(
    std::span<const std::uint8_t> file, std::span<const IndexedFrame> frames, std::int64_t loopCount = 0);

/// The colours of a picture, without alpha.
[[nodiscard]] std::vector<RGBColor> colorsOf(const IndexedFrame& frame);

} // namespace quillbox::support
