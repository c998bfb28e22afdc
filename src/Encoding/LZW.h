#pragma once

#include "Encoding/Bytes.h"

#include <span>

namespace quillbox::LZW {

/// Compresses one picture's palette indices with GIF's variable-width LZW.
///
/// The stream starts with a clear code; a further clear follows at once when code 4095 has been assigned; the code
/// width grows when the code just assigned equals 2^width; the end code has the width of the last data code.
/// @param indices      One index a pixel, rows top-down, each below 2^minCodeSize; may be empty.
/// @param minCodeSize  Bits a literal, 2…8.
/// @return Codes packed lowest bit first; neither the leading code-size byte nor the sub-block framing.
/// @pre    Arguments in range; a violation ends the process.   Time: O(indices).   Thread: any.
/// @see    GIF89a, appendix F; T. Welch, "A Technique for High-Performance Data Compression" (1984).
[[nodiscard]] Bytes encode(std::span<const std::uint8_t> indices, int minCodeSize);

} // namespace quillbox::LZW
