#pragma once

#include "Encoding/Bytes.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace quillbox {

/// The file in which a recording survives its program: a header, then records, each complete in itself, so that a file
/// that ends anywhere gives everything before. All numbers are little-endian.
///
///     header    "QBrec\r\n\x1A", version u32, frames a second u32, began i64 (ms since 1970, UTC), 0 u32,
///               CRC-32 of these 28 bytes u32
///     record    kind u32, number u32 (0, 1, 2 …), value i64, payload's bytes u32, payload's CRC-32 u32,
///               CRC-32 of these 24 bytes u32; then the payload
///
/// The kinds:
///
///     Band      value: bytes of the pixels, RGBA. Payload: one LZ4 block, or the pixels where that is not smaller.
///     Picture   value: the frame it begins at. Payload: width u32, height u32, then for each band that is not the one
///               of the picture before: place u32 (0 at the top, ascending), which Band of the file u32 (0, 1, 2 …).
///     Still     value: how many frames there were by then; the last picture was still there.
///     End       value: how many frames there are; the recording ended as it should.
///     Held      value: the first frame that no longer shows the screen, but the picture before: something of our own
///               was in the way.
///     Resumed   value: the first frame that shows the screen again. Without it, a picture that begins later than Held
///               says, and the End, do the same.
///
/// Version 1 has neither Held nor Resumed; in all else it is the same.
namespace JournalFormat {

inline constexpr std::uint32_t version = 2;
inline constexpr std::size_t headerBytes = 32;
inline constexpr std::size_t recordHeaderBytes = 28;
inline constexpr std::int64_t maxSide = 65535;      ///< of a picture, pixels
inline constexpr std::int64_t maxFrames = 1 << 22;  ///< more than 38 hours
inline constexpr std::int64_t maxPayload = 1 << 24; ///< more than any band or list of bands

enum class Kind : std::uint32_t { Band = 1, Picture = 2, Still = 3, End = 4, Held = 5, Resumed = 6 };

struct RecordHeader {
    Kind kind = Kind::Band;
    std::uint32_t number = 0;
    std::int64_t value = 0;
    std::uint32_t payloadBytes = 0;
    std::uint32_t payloadChecksum = 0;
};

using WallClock = std::chrono::system_clock;

/// CRC-32 as in Ethernet, zlib and PNG.
/// @see ISO/IEC 13239, 8.1.1.6.2; M. Kounavis, F. Berry, "A Systematic Approach to Building High Performance
///      Software-based CRC Generators" (2005), for eight bytes at a time
[[nodiscard]] std::uint32_t checksum(std::span<const std::uint8_t> bytes);

[[nodiscard]] std::array<std::uint8_t, headerBytes> encodedHeader(WallClock::time_point began);
/// When the recording began; none if that is no header of a version that is known.
[[nodiscard]] std::optional<WallClock::time_point> decodedHeader(std::span<const std::uint8_t, headerBytes> bytes);

/// Appends a record's header.
void append(Bytes& bytes, const RecordHeader& header);
/// None if it is damaged.
[[nodiscard]] std::optional<RecordHeader> decodedRecord(std::span<const std::uint8_t, recordHeaderBytes> bytes);

void append32(Bytes& bytes, std::uint32_t number);
/// @pre four bytes at `offset`
[[nodiscard]] std::uint32_t number32(std::span<const std::uint8_t> bytes, std::size_t offset);

} // namespace JournalFormat
} // namespace quillbox
