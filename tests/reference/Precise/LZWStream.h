#pragma once

#include "Encoding/Bytes.h"

#include <cstdint>
#include <span>
#include <stdexcept>
#include <vector>

namespace quillbox::reference {

/// A stream breaks a rule of the format.
class LZWStreamError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// What a GIF code stream says.
struct LZWStream {
    Bytes indices;
    std::vector<std::size_t> clears;     ///< how many indices stand before each clear code but the first
    std::int64_t codesWithFullTable = 0; ///< data codes that came when no code was left to assign
    std::int64_t bits = 0;               ///< up to the end code, included
};

/// Decodes a code stream by the letter of the format, a string for each code: it begins with a clear code, no other
/// stands beside a clear or before the end code, each code is assigned, the end code has the width that the next data
/// code would have, zeros fill the last byte, and nothing follows.
/// @throws LZWStreamError
[[nodiscard]] LZWStream lzwDecode(std::span<const std::uint8_t> data, int minCodeSize);

/// The bits of the stream that has clear codes at `clears` and always takes the longest known sequence.
[[nodiscard]] std::int64_t greedyBits(
    std::span<const std::uint8_t> indices, int minCodeSize, std::span<const std::size_t> clears);

} // namespace quillbox::reference
