#pragma once

#include "Encoding/LZW.h"
#include "Encoding/Pixels/PixelTypes.h"

#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <vector>

namespace quillbox {

/// Why frames cannot become a GIF.
class GIFEncodingError : public std::runtime_error {
public:
    /// A side of a frame does not fit the format's unsigned 16-bit fields.
    struct DimensionTooLarge {
        std::int64_t width = 0;  ///< pixels, as the caller gave them
        std::int64_t height = 0; ///< pixels

        friend bool operator==(const DimensionTooLarge&, const DimensionTooLarge&) = default;
    };

    explicit GIFEncodingError(DimensionTooLarge size);

    [[nodiscard]] const DimensionTooLarge& dimensionTooLarge() const { return m_size; }

    friend bool operator==(const GIFEncodingError& a, const GIFEncodingError& b) { return a.m_size == b.m_size; }

private:
    DimensionTooLarge m_size;
};

/// Writes indexed frames as an animated GIF89a: no global colour table, one local table a frame, every frame at the
/// top left corner and drawn over the one before. Stateless; thread: any.
/// @see GIF89a, CompuServe 1990; the looping extension is Netscape's "NETSCAPE2.0".
namespace GIFEncoder {

/// The largest width, height and delay that the format can carry.
inline constexpr std::int64_t maximumFieldValue = 65535;

struct Options {
    std::int64_t loopCount = 0; ///< repeats; 0 and below mean for ever. @pre at most 65535
};

/// The whole file. No frames give no bytes.
/// @throws GIFEncodingError  a frame's width or height is outside 0…65535; nothing is returned.
/// @pre every index of a frame fits its padded colour table.
[[nodiscard]] Bytes encode(std::span<const IndexedFrame> frames, Options options = {});

/// One frame's part of the file: control extension, image descriptor, colour table and compressed data.
/// `encode` is `fileOf` over these parts, which may be made in any order and on any thread.
/// @throws GIFEncodingError  as `encode`.
[[nodiscard]] Bytes encodeFrame(const IndexedFrame& frame, LZW::Encoder& compressor);

/// The size of the file that `fileOf` makes, in bytes.
[[nodiscard]] std::int64_t fileSize(std::span<const Bytes> frameParts);

/// Appends what stands before the first frame's part, on a screen of `width` × `height` pixels (0…65535 each).
void appendFileStart(Bytes& output, std::int64_t width, std::int64_t height, Options options);

/// Appends what follows the last frame's part.
void appendFileEnd(Bytes& output);

/// The file made of `frameParts`, which is not empty, on a screen of `width` × `height` pixels (0…65535 each).
[[nodiscard]] Bytes fileOf(std::span<const Bytes> frameParts, std::int64_t width, std::int64_t height, Options options);

/// @throws GIFEncodingError  when a side is outside 0…65535.
void checkSize(std::int64_t width, std::int64_t height);

/// Bits of a colour table for `count` colours: 1…8, the smallest table that holds them, 8 above 256.
[[nodiscard]] int colorTableBits(std::int64_t count);

/// `palette` with exactly 2^`colorTableBits` entries: black is appended, a surplus is cut off.
[[nodiscard]] std::vector<RGBColor> padPalette(std::span<const RGBColor> palette);

/// Appends the low byte, then the high byte.
void appendUInt16LE(Bytes& output, std::uint16_t value);

/// Appends what a file begins with (GIF89a, sections 17 and 18).
/// @param colorTableFlags  The packed field's bits that announce a global colour table; 0 for none. @pre both sides are
///                         0…65535
void appendHeader(Bytes& output, std::int64_t width, std::int64_t height, std::uint8_t colorTableFlags = 0);

/// Appends the application extension by which Netscape Navigator 2.0 introduced repetition.
/// @param loopCount  As in `Options`.
void appendLooping(Bytes& output, std::int64_t loopCount);

/// Appends a graphic control extension (GIF89a, section 23): disposal 1 (leave in place).
/// @param delayCentiseconds  Brought into 1…65535.
void appendGraphicControl(
    Bytes& output, std::int64_t delayCentiseconds, std::optional<std::uint8_t> transparentIndex = std::nullopt);

/// Appends `data` as sub-blocks of at most 255 bytes, each behind its length, and the zero terminator.
void appendAsSubBlocks(Bytes& output, std::span<const std::uint8_t> data);

} // namespace GIFEncoder
} // namespace quillbox
