#pragma once

#include "Encoding/Bytes.h"

#include <memory>
#include <span>

/// GIF's variable-width LZW.
/// @see GIF89a, appendix F; T. Welch, "A Technique for High-Performance Data Compression" (1984).
namespace quillbox::LZW {

/// Compresses pictures one after another; keeps its tables (some megabytes) in between. One thread at a time.
class Encoder {
public:
    Encoder();
    Encoder(Encoder&&) noexcept;
    Encoder& operator=(Encoder&&) noexcept;
    ~Encoder();

    /// Compresses one picture's palette indices.
    ///
    /// The stream starts with a clear code; a further clear follows at once when code 4095 has been assigned; the code
    /// width grows when the code just assigned equals 2^width; the end code has the width of the last data code.
    /// @param indices      One index a pixel, rows top-down, each below 2^minCodeSize; may be empty.
    /// @param minCodeSize  Bits a literal, 2…8.
    /// @return Codes packed lowest bit first, valid until the next call; neither the leading code-size byte nor the
    ///         sub-block framing.
    /// @pre    Arguments in range; a violation ends the process.   Time: O(indices).
    [[nodiscard]] std::span<const std::uint8_t> encode(std::span<const std::uint8_t> indices, int minCodeSize);

private:
    struct Tables;
    std::unique_ptr<Tables> m_tables;
    Bytes m_output;
};

/// `Encoder::encode` for a single picture.
[[nodiscard]] Bytes encode(std::span<const std::uint8_t> indices, int minCodeSize);

} // namespace quillbox::LZW
