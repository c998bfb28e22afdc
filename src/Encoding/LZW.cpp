#include "Encoding/LZW.h"

#include "Encoding/Precondition.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <random>
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
            const std::array<std::uint8_t, 4> bytes{static_cast<std::uint8_t>(m_buffer),
                static_cast<std::uint8_t>(m_buffer >> 8U), static_cast<std::uint8_t>(m_buffer >> 16U),
                static_cast<std::uint8_t>(m_buffer >> 24U)};
            std::memcpy(m_next, bytes.data(), bytes.size());
            m_next += bytes.size();
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
    Dictionary() { m_assigned.reserve(maxCodes); }

    void begin(int indexBits)
    {
        m_indexBits = static_cast<unsigned>(indexBits);
        const std::size_t slots = std::size_t{maxCodes} << m_indexBits;
        if (m_children.size() < slots) {
            m_children = Codes(slots);
            std::fill(m_children.begin(), m_children.end(), Code{0});
            m_assigned.clear();
            m_runCodes = Codes(slots);
        }
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
    /// Whether `code` stands for a run of `index` that is `length` long.
    [[nodiscard]] bool isRun(Code code, std::uint8_t index, std::size_t length) const
    {
        return length <= m_longestRun[index] && runCode(index, length) == code;
    }
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
    using Codes = UninitializedArray<Code>;

    Codes m_children; ///< by prefix code, then index; as large as the most bits of an index so far
    Codes m_runCodes; ///< by index, then length; valid up to `m_longestRun`
    std::array<std::uint16_t, 256> m_longestRun{};
    std::vector<std::uint32_t> m_assigned; ///< slots of `m_children` that are set
    unsigned m_indexBits = 8;
};

constexpr std::size_t leapLength = 4;

/// Four indices as one number, the same for the same four.
std::uint32_t fourAt(const std::uint8_t* indices)
{
    static_assert(leapLength == sizeof(std::uint32_t));
    std::uint32_t four = 0;
    std::memcpy(&four, indices, sizeof four);
    return four;
}

constexpr std::uint32_t fourOf(std::uint8_t index)
{
    return 0x01010101U * index;
}

/// Where four indices at once lead in the tree, from each sequence whose length is a multiple of four.
///
/// A step down the tree has to wait for the one before, which tells where to look. Leaps need not: an entry's place is
/// a hash of the indices alone, all of them from the sequence's start, so the processor fetches several entries ahead,
/// and checks afterwards that each begins where the one before led to.
///
/// A hash table with linear probing, a quarter full at most.
class Leaps {
public:
    /// A sequence of which leaps can start: 4 × `fours` indices.
    struct Base {
        Code code; ///< the clear code: nothing yet
        std::size_t fours = 0;
        std::uint64_t hash = 0; ///< of the indices: the sum of four times factor for each four
    };

    Leaps()
        : m_entries(std::size_t{1} << entryBits)
    {
        std::mt19937_64 random; // NOLINT(cert-msc51-cpp): the same numbers every time are as good as any
        for (std::size_t i = 0; i < maxFours; ++i) {
            m_factors[i] = random() | 1U;
            m_factorSums[i + 1] = m_factorSums[i] + m_factors[i];
        }
    }

    void reset() { std::ranges::fill(m_entries, 0); }

    /// The base that is a run of `index`.
    [[nodiscard]] Base ofRun(Code code, std::uint8_t index, std::size_t fours) const
    {
        return {.code = code, .fours = fours, .hash = fourOf(index) * m_factorSums[fours]};
    }

    /// @return where `four` leads from `base`; code 0 if nowhere.
    [[nodiscard]] Base find(const Base& base, std::uint32_t four) const
    {
        const std::uint64_t key = keyOf(base.code, four);
        Base longer{.code = 0, .fours = base.fours + 1, .hash = base.hash + four * m_factors[base.fours]};
        for (std::size_t place = placeOf(longer.hash); m_entries[place] != 0; place = nextPlace(place)) {
            if (m_entries[place] >> maxCodeBits == key) {
                longer.code = static_cast<Code>(m_entries[place] & (maxCodes - 1));
                break;
            }
        }
        return longer;
    }

    /// From now on `four` leads from `base` to `code`.
    void add(const Base& base, std::uint32_t four, Code code)
    {
        std::size_t place = placeOf(base.hash + four * m_factors[base.fours]);
        while (m_entries[place] != 0)
            place = nextPlace(place);
        m_entries[place] = keyOf(base.code, four) << maxCodeBits | code;
    }

private:
    static constexpr unsigned entryBits = 12;
    /// In a sequence, which is shorter than there are codes: each of its beginnings has one.
    static constexpr std::size_t maxFours = maxCodes / leapLength;

    /// Never zero.
    static std::uint64_t keyOf(Code base, std::uint32_t four)
    {
        return std::uint64_t{1} << 44U | std::uint64_t{base} << 32U | four;
    }
    static std::size_t placeOf(std::uint64_t hash) { return hash >> (64 - entryBits); }
    static std::size_t nextPlace(std::size_t place) { return (place + 1) % (std::size_t{1} << entryBits); }

    std::vector<std::uint64_t> m_entries;                   ///< key, then code; zero where free
    std::array<std::uint64_t, maxFours> m_factors{};        ///< random, odd; one for each place in a sequence
    std::array<std::uint64_t, maxFours + 1> m_factorSums{}; ///< of so many of the first
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
        const std::uint64_t difference = eight ^ pattern;
        if (difference != 0) {
            constexpr bool firstIsLowest = std::endian::native == std::endian::little;
            const int equalBits = firstIsLowest ? std::countr_zero(difference) : std::countl_zero(difference);
            return end + static_cast<std::size_t>(equalBits / 8);
        }
    }
    while (end < indices.size() && indices[end] == index)
        ++end;
    return end;
}

/// How the codes of one full table came about.
struct Filling {
    std::size_t codes = 0;
    std::size_t steps = 0; ///< down the tree, each index counted

    /// Whether a table like this is filled faster by leaps. Measured: from three steps a code on; a picture's flat and
    /// its detailed parts take turns, so it takes more to begin with them than to go on.
    [[nodiscard]] bool isWorthLeaping(bool byLeaps) const { return steps > (byLeaps ? 3 : 5) * codes; }
};

/// The road of one picture from indices to codes.
class Compression {
public:
    Compression(Dictionary& dictionary, Leaps& leaps, std::span<const std::uint8_t> indices, int minCodeSize,
        std::uint8_t* output)
        : m_dictionary(dictionary)
        , m_leaps(leaps)
        , m_indices(indices)
        , m_clearCode(static_cast<Code>(1U << static_cast<unsigned>(minCodeSize)))
        , m_firstCodeSize(minCodeSize + 1)
        , m_codeSize(m_firstCodeSize)
        , m_writer(output)
    {
        m_dictionary.begin(minCodeSize);
        m_writer.write(m_clearCode, m_codeSize);
    }

    [[nodiscard]] bool isDone() const { return m_position == m_indices.size(); }

    /// Codes indices until the table is full and then clears it, or until none are left.
    /// @pre not done.
    template <bool byLeaps> Filling fillTable()
    {
        if constexpr (byLeaps)
            m_leaps.reset();
        Filling filling;
        auto nextCode = static_cast<Code>(m_clearCode + 2);
        while (!isDone()) {
            const std::size_t start = m_position;
            Code code = 0;
            Leaps::Base base{.code = m_clearCode}; // the longest beginning that can be one
            if (byLeaps && !fourAreEqual(start)) { // leaps find a shorter run as well
                code = m_indices[m_position++];
            } else {
                code = takeKnownRun();
                if constexpr (byLeaps)
                    base = baseOfRun(start);
            }
            const std::size_t afterRun = m_position;
            if constexpr (byLeaps)
                leap(code, base, start);
            while (!isDone() && step(code)) { }
            // Without leaps all known runs were taken, so that any step has left the run.
            const bool isRun
                = byLeaps ? m_dictionary.isRun(code, m_indices[start], m_position - start) : m_position == afterRun;
            ++filling.codes;
            filling.steps += m_position - afterRun;
            m_writer.write(code, m_codeSize);
            if (isDone())
                break; // the last data code assigns nothing and changes no width

            const std::uint8_t index = m_indices[m_position];
            m_dictionary.assign(m_dictionary.slot(code, index), nextCode);
            if (isRun && index == m_indices[start])
                m_dictionary.lengthenRun(index, nextCode);
            if constexpr (byLeaps) {
                if ((m_position + 1 - start) % leapLength == 0)
                    m_leaps.add(base, fourAt(&m_indices[m_position + 1 - leapLength]), nextCode);
            }
            ++nextCode;
            if (nextCode > 1 << m_codeSize && m_codeSize < maxCodeBits)
                ++m_codeSize; // one entry late: a decoder's table trails ours by one
            if (nextCode >= maxCodes) {
                m_writer.write(m_clearCode, m_codeSize);
                m_dictionary.reset();
                m_codeSize = m_firstCodeSize;
                break;
            }
        }
        return filling;
    }

    /// Writes the end code. @return the end of the output.
    std::uint8_t* finish()
    {
        m_writer.write(m_clearCode + 1U, m_codeSize);
        return m_writer.finish();
    }

private:
    [[nodiscard]] bool fourAreEqual(std::size_t at) const
    {
        return at + leapLength <= m_indices.size() && fourAt(&m_indices[at]) == fourOf(m_indices[at]);
    }

    /// Takes the longest known run that begins at `m_position`, at once.
    Code takeKnownRun()
    {
        const std::uint8_t index = m_indices[m_position++];
        if (isDone() || m_indices[m_position] != index)
            return index;
        if (m_runEnd < m_position)
            m_runEnd = endOfRun(m_indices, m_position);
        const std::size_t length = std::min(m_runEnd - m_position + 1, m_dictionary.longestRun(index));
        m_position += length - 1;
        return m_dictionary.runCode(index, length);
    }

    /// For the run from `start` to `m_position`.
    [[nodiscard]] Leaps::Base baseOfRun(std::size_t start) const
    {
        const std::size_t fours = (m_position - start) / leapLength;
        if (fours == 0)
            return {.code = m_clearCode};
        const std::uint8_t index = m_indices[start];
        return m_leaps.ofRun(m_dictionary.runCode(index, fours * leapLength), index, fours);
    }

    /// Extends the sequence that begins at `start` by leaps, as far as it is known where to.
    void leap(Code& code, Leaps::Base& base, std::size_t start)
    {
        const std::size_t foursBefore = base.fours;
        for (std::size_t end = start + (base.fours + 1) * leapLength; end <= m_indices.size(); end += leapLength) {
            const Leaps::Base longer = m_leaps.find(base, fourAt(&m_indices[end - leapLength]));
            if (longer.code == 0)
                break;
            base = longer;
        }
        if (base.fours > foursBefore) {
            code = base.code;
            m_position = start + base.fours * leapLength;
        }
    }

    /// @return whether the dictionary knows the sequence longer by one.
    bool step(Code& code)
    {
        const Code longer = m_dictionary.child(m_dictionary.slot(code, m_indices[m_position]));
        if (longer == 0)
            return false;
        code = longer;
        ++m_position;
        return true;
    }

    Dictionary& m_dictionary;
    Leaps& m_leaps;
    std::span<const std::uint8_t> m_indices;
    Code m_clearCode;
    int m_firstCodeSize;
    int m_codeSize;
    BitWriter m_writer;
    std::size_t m_position = 0; ///< of the first index that has no code yet
    std::size_t m_runEnd = 0;   ///< the run that `m_position` may stand in ends here
};

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
    Leaps leaps;
    bool byLeaps = false; ///< as the last table would have been filled faster
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
    unsigned usedBits = 0;
    for (const std::uint8_t index : indices)
        usedBits |= index;
    precondition(usedBits >> static_cast<unsigned>(minCodeSize) == 0, "every index is below 2^minCodeSize");

    m_output.resize(std::max(m_output.size(), outputBound(indices.size())));
    Compression compression(m_tables->dictionary, m_tables->leaps, indices, minCodeSize, m_output.data());
    while (!compression.isDone()) {
        const Filling filling = m_tables->byLeaps ? compression.fillTable<true>() : compression.fillTable<false>();
        m_tables->byLeaps = filling.isWorthLeaping(m_tables->byLeaps);
    }
    return {m_output.data(), compression.finish()};
}

Bytes encode(std::span<const std::uint8_t> indices, int minCodeSize)
{
    Encoder encoder;
    const auto codes = encoder.encode(indices, minCodeSize);
    return {codes.begin(), codes.end()};
}

} // namespace quillbox::LZW
