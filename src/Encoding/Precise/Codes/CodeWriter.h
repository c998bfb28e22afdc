#pragma once

#include "Encoding/Bytes.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <utility>

namespace quillbox {

/// Packs the codes of an LZW stream, lowest bit first.
class CodeWriter {
public:
    void write(std::uint32_t code, int bits)
    {
        m_buffer |= std::uint64_t{code} << static_cast<unsigned>(m_count);
        for (m_count += bits; m_count >= 8; m_count -= 8) {
            m_bytes.push_back(static_cast<std::uint8_t>(m_buffer));
            m_buffer >>= 8U;
        }
    }

    /// All bytes; zeros fill the last one. Nothing can be written afterwards.
    Bytes finish()
    {
        if (m_count > 0)
            m_bytes.push_back(static_cast<std::uint8_t>(m_buffer));
        return std::move(m_bytes);
    }

private:
    Bytes m_bytes;
    std::uint64_t m_buffer = 0;
    int m_count = 0;
};

/// The bits of a literal that all indices up to the largest need; GIF's have two at least.
[[nodiscard]] inline int minCodeSizeFor(std::uint8_t largestIndex)
{
    return std::max(static_cast<int>(std::bit_width(unsigned{largestIndex})), 2);
}

} // namespace quillbox
