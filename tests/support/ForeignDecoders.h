#pragma once

#include "Encoding/Pixels/PixelTypes.h"

#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace quillbox::support {

/// A GIF as another program shows it: every picture composed, without alpha.
struct ShownGif {
    std::vector<std::vector<RGBColor>> pictures; ///< each of the screen's size, rows top-down
    std::vector<std::int64_t> delaysCentiseconds;
    std::optional<std::int64_t> loopCount; ///< if the program tells it
};

/// A program failed, complained, or gave another number of bytes than expected.
class ForeignDecoderError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Each decodes a file whose screen has `width` × `height` pixels. @throws ForeignDecoderError
[[nodiscard]] ShownGif decodeWithFFmpeg(std::span<const std::uint8_t> file, std::int64_t width, std::int64_t height);
[[nodiscard]] ShownGif decodeWithPillow(std::span<const std::uint8_t> file, std::int64_t width, std::int64_t height);
[[nodiscard]] ShownGif decodeWithImageMagick(
    std::span<const std::uint8_t> file, std::int64_t width, std::int64_t height);

/// By Chromium without a window, through its ImageDecoder.
[[nodiscard]] ShownGif decodeWithChromium(std::span<const std::uint8_t> file, std::int64_t width, std::int64_t height);

/// What giflib reads, composed by the rules of the format: pictures overwrite their part of the screen, except where
/// they are transparent, and stay. @throws GifDecodingError  giflib refused the file.   @pre every disposal is "leave
/// in place".
[[nodiscard]] ShownGif composedByGiflib(std::span<const std::uint8_t> file);

/// What gifsicle has to say against the file when it lists it and when it decodes all of it; empty for nothing.
[[nodiscard]] std::string faultsFoundByGifsicle(std::span<const std::uint8_t> file);

} // namespace quillbox::support
