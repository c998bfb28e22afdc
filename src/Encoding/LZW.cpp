#include "Encoding/LZW.h"

#include "Encoding/Precondition.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <vector>

namespace quillbox::LZW {
namespace {

using Code = std::uint16_t;

constexpr int maxCodeBits = 12;
constexpr int maxCodes = 1 << maxCodeBits;

/// Packs codes lowest bit first into a buffer that is known to be large enough.
class BitWriter {
public:
    explicit BitWriter(std::uint8_t* output)
        : m_next(output)
    {
    }

    void write(std::uint32_t code, int bits)
    {
        m_buffer |= std::uint64_t{code} << static_cast<unsigned>(m_count);
        m_count += bits;
        if (m_count >= 32) { // four bytes at once; at most 31 + 12 bits are ever pending
            for (int byte = 0; byte < 4; ++byte)
                *m_next++ = static_cast<std::uint8_t>(m_buffer >> static_cast<unsigned>(8 * byte));
            m_buffer >>= 32U;
            m_count -= 32;
        }
    }

    /// Writes what is pending, the last byte's unused high bits zero. @return the end of the output.
    std::uint8_t* finish()
    {
        for (; m_count > 0; m_count -= 8) {
            *m_next++ = static_cast<std::uint8_t>(m_buffer);
            m_buffer >>= 8U;
        }
        return m_next;
    }

private:
    std::uint8_t* m_next;
    std::uint64_t m_buffer = 0;
    int m_count = 0;
};

/// The sequences that have a code, as a tree: `child(prefix, index)` is the code of prefix followed by index.
/// Single indices are their own codes. Zero stands for "none": index 0 alone has code 0 but is nobody's child.
///
/// Beside the tree it knows the codes of all runs of one index, since a flat area of a picture is coded as ever
/// longer runs: a run's longest prefix is found in one step instead of one step a pixel.
class Dictionary {
public:
    Dictionary()
        : m_children(static_cast<std::size_t>(maxCodes) << 8U, 0)
        , m_runCodes(static_cast<std::size_t>(maxCodes) << 8U)
    {
        m_assigned.reserve(maxCodes);
    }

    void begin(int indexBits)
    {
        m_indexBits = static_cast<unsigned>(indexBits);
        reset();
    }

    /// Forgets all sequences but the single indices; touches only what was set.
    void reset()
    {
        for (const std::uint32_t slot : m_assigned)
            m_children[slot] = 0;
        m_assigned.clear();
        const std::size_t indexCount = std::size_t{1} << m_indexBits;
        std::fill_n(m_longestRun.begin(), indexCount, std::uint16_t{1});
        for (std::size_t index = 0; index < indexCount; ++index)
            m_runCodes[(index << maxCodeBits) + 1] = static_cast<Code>(index);
    }

    [[nodiscard]] std::uint32_t slot(Code prefix, std::uint8_t index) const
    {
        return std::uint32_t{prefix} << m_indexBits | index;
    }
    [[nodiscard]] Code child(std::uint32_t slot) const { return m_children[slot]; }
    void assign(std::uint32_t slot, Code code)
    {
        m_children[slot] = code;
        m_assigned.push_back(slot);
    }

    [[nodiscard]] std::size_t longestRun(std::uint8_t index) const { return m_longestRun[index]; }
    [[nodiscard]] Code runCode(std::uint8_t index, std::size_t length) const
    {
        return m_runCodes[(std::size_t{index} << maxCodeBits) + length];
    }
    /// @pre `code` was just assigned to the run one longer than `longestRun(index)`.
    void lengthenRun(std::uint8_t index, Code code)
    {
        m_runCodes[(std::size_t{index} << maxCodeBits) + ++m_longestRun[index]] = code;
    }

private:
    std::vector<Code> m_children; ///< by prefix code, then index
    std::vector<Code> m_runCodes; ///< by index, then length; valid up to `m_longestRun`
    std::array<std::uint16_t, 256> m_longestRun{};
    std::vector<std::uint32_t> m_assigned; ///< slots of `m_children` that are set
    unsigned m_indexBits = 8;
};

/// Where the run that begins at `start` ends.
std::size_t endOfRun(std::span<const std::uint8_t> indices, std::size_t start)
{
    const std::uint8_t index = indices[start];
    const std::uint64_t pattern = 0x0101010101010101U * index;
    std::size_t end = start + 1;
    for (; end + sizeof pattern <= indices.size(); end += sizeof pattern) {
        std::uint64_t eight = 0;
        std::memcpy(&eight, &indices[end], sizeof eight);
        if (eight != pattern)
            break;
    }
    while (end < indices.size() && indices[end] == index)
        ++end;
    return end;
}

/// More bytes than `encode` can produce for `count` indices: 12 bits for each index's code, for a clear code
/// after every 3838 of them at most, for the first clear and the end, and the four bytes of a pending write.
std::size_t outputBound(std::size_t count)
{
    const std::size_t codes = count + count / 3000 + 4;
    return codes + codes / 2 + 8;
}

} // namespace

struct Encoder::Tables {
    Dictionary dictionary;
};

Encoder::Encoder()
    : m_tables(std::make_unique<Tables>())
{
}
Encoder::Encoder(Encoder&&) noexcept = default;
Encoder& Encoder::operator=(Encoder&&) noexcept = default;
Encoder::~Encoder() = default;

std::span<const std::uint8_t> Encoder::encode(std::span<const std::uint8_t> indices, int minCodeSize)
{
    precondition(minCodeSize >= 2 && minCodeSize <= 8, "LZW literals have 2 to 8 bits");
    const int clearCode = 1 << minCodeSize;
    const int endCode = clearCode + 1;
    unsigned usedBits = 0;
    for (const std::uint8_t index : indices)
        usedBits |= index;
    precondition(usedBits < static_cast<unsigned>(clearCode), "every index is below 2^minCodeSize");

    m_output.resize(std::max(m_output.size(), outputBound(indices.size())));
    Dictionary& dictionary = m_tables->dictionary;
    dictionary.begin(minCodeSize);
    int codeSize = minCodeSize + 1;
    int nextCode = clearCode + 2;
    BitWriter writer(m_output.data());
    writer.write(static_cast<std::uint32_t>(clearCode), codeSize);

    const std::size_t count = indices.size();
    std::size_t position = 0; // of the first index that is not part of the current sequence
    std::size_t runEnd = 0;   // the run that `position` may stand in ends here
    while (position < count) {
        // A new sequence begins. Take the longest known run at once.
        const std::uint8_t first = indices[position];
        std::size_t taken = 1;
        if (position + 1 < count && indices[position + 1] == first) {
            if (runEnd <= position)
                runEnd = endOfRun(indices, position);
            taken = std::min(runEnd - position, dictionary.longestRun(first));
        }
        Code sequence = dictionary.runCode(first, taken);
        bool pureRun = true;
        position += taken;

        // Extend it while the dictionary knows it.
        std::uint32_t slot = 0;
        while (position < count) {
            slot = dictionary.slot(sequence, indices[position]);
            const Code longer = dictionary.child(slot);
            if (longer == 0)
                break;
            pureRun = false; // all known runs were taken above, so this step left the run
            sequence = longer;
            ++position;
        }
        writer.write(sequence, codeSize);
        if (position == count)
            break; // the last data code assigns nothing and changes no width

        dictionary.assign(slot, static_cast<Code>(nextCode));
        if (pureRun && indices[position] == first)
            dictionary.lengthenRun(first, static_cast<Code>(nextCode));
        ++nextCode;
        if (nextCode > 1 << codeSize && codeSize < maxCodeBits)
            ++codeSize; // one entry late: a decoder's table trails ours by one
        if (nextCode >= maxCodes) {
            writer.write(static_cast<std::uint32_t>(clearCode), codeSize);
            dictionary.reset();
            codeSize = minCodeSize + 1;
            nextCode = clearCode + 2;
        }
    }
    writer.write(static_cast<std::uint32_t>(endCode), codeSize);
    return {m_output.data(), writer.finish()};
}

Bytes encode(std::span<const std::uint8_t> indices, int minCodeSize)
{
    Encoder encoder;
    const auto codes = encoder.encode(indices, minCodeSize);
    return {codes.begin(), codes.end()};
}

} // namespace quillbox::LZW
