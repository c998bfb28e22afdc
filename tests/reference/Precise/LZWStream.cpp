#include "reference/Precise/LZWStream.h"

#include <algorithm>
#include <map>
#include <string>

namespace quillbox::reference {

namespace {

constexpr std::size_t maxCodes = 4096;

class BitReader {
public:
    explicit BitReader(std::span<const std::uint8_t> data)
        : m_data(data)
    {
    }

    std::uint32_t read(int count)
    {
        std::uint32_t value = 0;
        for (int i = 0; i < count; ++i, ++m_position) {
            if (m_position / 8 >= m_data.size())
                throw LZWStreamError("the stream ends within a code");
            const unsigned bit = static_cast<unsigned>(m_data[m_position / 8]) >> m_position % 8 & 1U;
            value |= bit << static_cast<unsigned>(i);
        }
        return value;
    }

    [[nodiscard]] std::size_t position() const { return m_position; }
    void expectEnd()
    {
        if ((m_position + 7) / 8 != m_data.size())
            throw LZWStreamError("bytes follow the end code");
        while (m_position % 8 != 0) {
            if (read(1) != 0)
                throw LZWStreamError("the last byte is not filled with zeros");
        }
    }

private:
    std::span<const std::uint8_t> m_data;
    std::size_t m_position = 0;
};

std::vector<std::string> singleIndices(std::size_t count)
{
    std::vector<std::string> table;
    for (std::size_t index = 0; index < count; ++index)
        table.emplace_back(1, static_cast<char>(index));
    table.resize(count + 2); // the clear code and the end code stand for nothing
    return table;
}

/// The bits of the next code, when a decoder's table has so many entries.
int widthFor(std::size_t entries)
{
    int bits = 1;
    while (bits < 12 && std::size_t{1} << static_cast<unsigned>(bits) <= entries)
        ++bits;
    return bits;
}

} // namespace

LZWStream lzwDecode(std::span<const std::uint8_t> data, int minCodeSize)
{
    const std::size_t clear = std::size_t{1} << static_cast<unsigned>(minCodeSize);
    BitReader reader(data);
    LZWStream stream;
    if (reader.read(minCodeSize + 1) != clear)
        throw LZWStreamError("the stream does not begin with a clear code");
    for (;;) {
        std::vector<std::string> table = singleIndices(clear);
        std::string previous;
        std::size_t code = 0;
        for (;;) {
            code = reader.read(widthFor(table.size()));
            if (code == clear || code == clear + 1)
                break;
            if (code > table.size() || (code == table.size() && (previous.empty() || code == maxCodes)))
                throw LZWStreamError("a code that was not assigned");
            if (table.size() == maxCodes)
                ++stream.codesWithFullTable;
            const std::string sequence = code < table.size() ? table[code] : previous + previous[0];
            if (!previous.empty() && table.size() < maxCodes)
                table.push_back(previous + sequence[0]);
            for (const char index : sequence)
                stream.indices.push_back(static_cast<std::uint8_t>(index));
            previous = sequence;
        }
        if (previous.empty())
            throw LZWStreamError("nothing stands behind a clear code");
        if (code == clear + 1)
            break;
        stream.clears.push_back(stream.indices.size());
    }
    stream.bits = static_cast<std::int64_t>(reader.position());
    reader.expectEnd();
    return stream;
}

std::int64_t greedyBits(std::span<const std::uint8_t> indices, int minCodeSize, std::span<const std::size_t> clears)
{
    const std::size_t clear = std::size_t{1} << static_cast<unsigned>(minCodeSize);
    std::int64_t bits = minCodeSize + 1;
    std::size_t start = 0;
    for (std::size_t part = 0; part <= clears.size(); ++part) {
        const std::size_t end = part < clears.size() ? clears[part] : indices.size();
        std::map<std::string, bool> known;
        std::size_t entries = clear + 2; // of a decoder's table
        std::string previous;
        while (start < end) {
            std::string sequence(1, static_cast<char>(indices[start]));
            std::string learnt = previous + sequence[0];
            const bool learns = !previous.empty() && entries + (previous.empty() ? 0 : 1) <= maxCodes;
            if (learns)
                known[learnt] = true;
            while (start + sequence.size() < end) {
                const std::string longer = sequence + static_cast<char>(indices[start + sequence.size()]);
                if (!known.contains(longer))
                    break;
                sequence = longer;
            }
            bits += widthFor(entries);
            if (learns)
                ++entries;
            start += sequence.size();
            previous = sequence;
        }
        bits += widthFor(entries); // the clear or end code
    }
    return bits;
}

} // namespace quillbox::reference
