#pragma once

#include <cstdint>

namespace quillbox {

/// How many pixels a file's bytes can stand for at most, so that a file which announces more can be refused before room
/// is made for them. No valid file has more; most have far less. Stateless; thread: any.
namespace CompressionBounds {

/// Of a GIF's picture. @param byteCount  Of its LZW data, without the lengths of the sub-blocks.
/// @param minCodeSize  Bits per literal, as the file has it. @see GIF89a, appendix F.
[[nodiscard]] std::int64_t maxPixelsOfLZW(std::int64_t byteCount, std::int64_t minCodeSize);

/// Of a JPEG's picture whose entropy coding is Huffman's. @see ITU-T T.81, sections F.1.2 and G.1.2.
[[nodiscard]] std::int64_t maxPixelsOfHuffmanJPEG(std::int64_t byteCount);

/// Bytes, not pixels, that a deflate stream gives. @see RFC 1951, section 3.2.5.
[[nodiscard]] std::int64_t maxBytesOfDeflate(std::int64_t byteCount);

} // namespace CompressionBounds
} // namespace quillbox
