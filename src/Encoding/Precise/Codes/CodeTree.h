#pragma once

#include "Encoding/Bytes.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <vector>

namespace quillbox {

/// The sequences that an LZW stream has a code for since its last clear code, as a tree: each longer sequence is the
/// child of the one without its last index. Single indices are their own codes.
///
/// A hash table with linear probing, half full at most and small enough for the processor's first cache; beside it the
/// codes of all runs of one index, since flat areas are coded as ever longer runs.
class CodeTree {
public:
    using Code = std::uint16_t;

    static constexpr int maxCodes = 4096; ///< of at most twelve bits

    /// Forgets all sequences but the single indices; to be called first. @param minCodeSize  bits of an index, 2…8.
    void reset(int minCodeSize);

    /// Whether every code is assigned.
    [[nodiscard]] bool isFull() const { return m_next == maxCodes; }

    /// The code of `prefix`'s sequence and then `index`; 0 if it has none.
    [[nodiscard]] Code child(Code prefix, std::uint8_t index) const
    {
        if ((m_children[prefix] >> classOf(index) & 1U) == 0)
            return 0;
        const std::uint32_t key = keyOf(prefix, index);
        for (std::uint32_t place = placeOf(key);; place = (place + 1) % placeCount) {
            const std::uint32_t entry = m_entries[place];
            if (entry >> codeBits == key && entry != 0)
                return static_cast<Code>(entry % maxCodes);
            if (entry == 0)
                return 0;
        }
    }

    /// Assigns the next code to `prefix`'s sequence and then `index`, unless they have one: then the next code is
    /// passed over, since no decoder asks what is new about it. @return the code, or 0. @pre not full.
    Code add(Code prefix, std::uint8_t index)
    {
        const auto code = static_cast<Code>(m_next++);
        const std::uint32_t key = keyOf(prefix, index);
        std::uint32_t place = placeOf(key);
        for (; m_entries[place] != 0; place = (place + 1) % placeCount) {
            if (m_entries[place] >> codeBits == key)
                return 0;
        }
        m_entries[place] = key << codeBits | code;
        m_children[prefix] |= 1U << classOf(index);
        m_children[code] = 0;
        const std::uint16_t run = m_longestRun[index];
        if (prefix == runCode(index, run)) {
            m_longestRun[index] = static_cast<std::uint16_t>(run + 1);
            m_runCodes[slotOf(index, m_longestRun[index])] = code;
        }
        return code;
    }

    /// The length of the longest run of `index` that has a code, at least 1.
    [[nodiscard]] std::uint32_t longestRun(std::uint8_t index) const { return m_longestRun[index]; }
    /// @pre `length` is in 1…`longestRun(index)`.
    [[nodiscard]] Code runCode(std::uint8_t index, std::uint32_t length) const
    {
        return length == 1 ? index : m_runCodes[slotOf(index, length)];
    }

private:
    static constexpr unsigned codeBits = 12;
    static constexpr unsigned placeBits = 13;
    static constexpr std::uint32_t placeCount = 1U << placeBits;

    static std::uint32_t keyOf(Code prefix, std::uint8_t index) { return std::uint32_t{prefix} << 8U | index; }
    static std::uint32_t placeOf(std::uint32_t key)
    {
        return key * 0x9E3779B1U >> (32 - placeBits); // Fibonacci hashing
    }
    static unsigned classOf(std::uint8_t index) { return index % 32U; }
    static std::size_t slotOf(std::uint8_t index, std::uint32_t length)
    {
        return std::size_t{index} << codeBits | length;
    }

    using Codes = UninitializedArray<Code>;

    std::array<std::uint32_t, placeCount> m_entries{}; ///< prefix, index, code; zero where free
    Codes m_runCodes; ///< by index, then length from 2 on; valid up to `m_longestRun`. As large as the most bits so far
    std::array<std::uint32_t, maxCodes> m_children{}; ///< for each code, the classes of the indices that follow it:
                                                      ///< most sequences end where none does
    std::array<std::uint16_t, 256> m_longestRun{};
    int m_next = 0;
};

/// The bits of the codes that follow a clear code.
class CodeWidths {
public:
    /// @param minCodeSize  2…8.
    explicit CodeWidths(int minCodeSize)
        : m_first((1U << static_cast<unsigned>(minCodeSize)) + 1)
    {
    }

    /// The bits of the code that `count` codes came before since the clear code, whatever it is: data, clear or end. A
    /// decoder's table trails by one code, and the widest codes have twelve bits.
    [[nodiscard]] int after(std::int64_t count) const
    {
        const auto largest = static_cast<unsigned>(std::min<std::int64_t>(m_first + count, CodeTree::maxCodes - 1));
        return static_cast<int>(std::bit_width(largest));
    }

private:
    std::int64_t m_first;
};

} // namespace quillbox
