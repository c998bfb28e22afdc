#include "reference/LZW.h"

#include "Encoding/Precondition.h"

#include <string>
#include <unordered_map>

namespace quillbox::reference {

namespace {

/// Packs codes of any width into bytes, lowest bit first.
class BitWriter {
public:
    void write(std::uint32_t code, int bits)
    {
        m_bitBuffer |= code << static_cast<unsigned>(m_bitCount);
        m_bitCount += bits;
        while (m_bitCount >= 8) {
            m_bytes.push_back(static_cast<std::uint8_t>(m_bitBuffer & 0xFFU));
            m_bitBuffer >>= 8U;
            m_bitCount -= 8;
        }
    }

    Bytes finish()
    {
        if (m_bitCount > 0)
            m_bytes.push_back(static_cast<std::uint8_t>(m_bitBuffer & 0xFFU));
        return m_bytes;
    }

private:
    Bytes m_bytes;
    std::uint32_t m_bitBuffer = 0;
    int m_bitCount = 0;
};

} // namespace

Bytes lzwEncode(std::span<const std::uint8_t> indices, int minCodeSize)
{
    const std::uint32_t clearCode = 1U << static_cast<unsigned>(minCodeSize);
    const std::uint32_t endCode = clearCode + 1;
    std::unordered_map<std::string, std::uint32_t> dictionary;
    std::uint32_t nextCode = 0;
    int codeSize = 0;
    const auto resetDictionary = [&] {
        dictionary.clear();
        for (std::uint32_t index = 0; index < clearCode; ++index)
            dictionary.emplace(std::string(1, static_cast<char>(index)), index);
        nextCode = clearCode + 2;
        codeSize = minCodeSize + 1;
    };
    const auto codeOf = [&](const std::string& sequence) {
        const auto found = dictionary.find(sequence);
        precondition(found != dictionary.end(), "every index is below the clear code");
        return found->second;
    };

    BitWriter writer;
    resetDictionary();
    writer.write(clearCode, codeSize);
    if (indices.empty()) {
        writer.write(endCode, codeSize);
        return writer.finish();
    }
    std::string w(1, static_cast<char>(indices[0]));
    for (const std::uint8_t k : indices.subspan(1)) {
        const std::string wk = w + static_cast<char>(k);
        if (dictionary.contains(wk)) {
            w = wk;
            continue;
        }
        writer.write(codeOf(w), codeSize);
        dictionary.emplace(wk, nextCode);
        ++nextCode;
        if (nextCode > 1U << static_cast<unsigned>(codeSize) && codeSize < 12)
            ++codeSize;
        w = std::string(1, static_cast<char>(k));
        if (nextCode >= 4096) {
            writer.write(clearCode, codeSize);
            resetDictionary();
        }
    }
    writer.write(codeOf(w), codeSize);
    writer.write(endCode, codeSize);
    return writer.finish();
}

} // namespace quillbox::reference
