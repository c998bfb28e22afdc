#include "Encoding/Precise/Codes/PictureParser.h"

#include "Encoding/Precondition.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace quillbox {
namespace {

constexpr std::uint64_t ones = 0x0101'0101'0101'0101;

/// For eight bytes, the first one lowest, how many there are before the first 0; 8 if there is none.
/// @see S. Anderson, "Bit Twiddling Hacks" (2005), where false hits are above the first one only.
std::size_t bytesBeforeZero(std::uint64_t bytes)
{
    static_assert(std::endian::native == std::endian::little);
    const std::uint64_t zeros = (bytes - ones) & ~bytes & (ones << 7U);
    return static_cast<std::size_t>(std::countr_zero(zeros)) / 8;
}

std::uint64_t eightBytes(const std::uint8_t* bytes)
{
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, sizeof word);
    return word;
}

/// How many of `count` indices equal the first one before another comes.
std::size_t equalRun(const std::uint8_t* indices, std::size_t count)
{
    const std::uint64_t pattern = ones * indices[0];
    std::size_t run = 1;
    for (; run + 8 <= count; run += 8) {
        const std::uint64_t differences = eightBytes(indices + run) ^ pattern;
        if (differences != 0)
            return run + static_cast<std::size_t>(std::countr_zero(differences)) / 8;
    }
    while (run < count && indices[run] == indices[0])
        ++run;
    return run;
}

/// How many of `count` pixels, of which the first one is free, are so before another comes.
std::size_t freeRun(const std::uint8_t* isFree, std::size_t count)
{
    std::size_t run = 1;
    for (; run + 8 <= count; run += 8) {
        const std::size_t free = bytesBeforeZero(eightBytes(isFree + run));
        if (free < 8)
            return run + free;
    }
    while (run < count && isFree[run] != 0)
        ++run;
    return run;
}

} // namespace

void PictureParser::setPicture(const FreePicture& picture)
{
    m_picture = picture;
    const std::size_t count = picture.indices.size();
    precondition(picture.isFree.empty() || picture.isFree.size() == count, "every pixel is free or not");
    m_written.resize(count);
    if (picture.isFree.empty()) // all is written as it stands; otherwise what is written is noted
        std::ranges::copy(picture.indices, m_written.begin());
    m_starts.resize(CodeTree::maxCodes);
}

void PictureParser::begin(std::size_t position)
{
    m_tree.reset(m_picture.minCodeSize);
    m_position = position;
    m_codeCount = 0;
    m_previous = {};
    m_ahead = {};
}

PictureParser::Code PictureParser::next(std::size_t limit)
{
    Match match = m_ahead.length > 0 && m_aheadLimit == limit ? m_ahead : longest(m_position, limit);
    m_ahead = {};
    learn(match, limit);
    if (m_lookahead.pixels > 0 && match.length > 1 && m_position + match.length < limit)
        lookAhead(match, limit);
    write(match);
    return match.code;
}

/// The longest sequence that agrees with the picture; of equally long ones that which is transparent earlier.
PictureParser::Match PictureParser::longest(std::size_t position, std::size_t limit)
{
    Match best;
    const std::uint8_t index = m_picture.indices[position];
    const auto longestRun = [&](std::uint8_t first) {
        return std::min(std::size_t{m_tree.longestRun(first)}, limit - position);
    };
    const auto opaqueRun = [&] {
        return equalRun(&m_picture.indices[position], longestRun(index));
    };
    if (m_picture.isFree.empty()) {
        extend<false>(best, position, limit, index, opaqueRun());
        return best;
    }
    const bool free = isFree(position);
    const std::uint8_t transparent = m_picture.transparentIndex;
    if (free)
        extend<true>(best, position, limit, transparent, freeRun(&m_picture.isFree[position], longestRun(transparent)));
    if (!free || index != transparent)
        extend<true>(best, position, limit, index, opaqueRun());
    return best;
}

/// Looks for a longer sequence than `best` that begins with a run of `first`, which has a code. Where the next pixel
/// may be either of two indices and the tree knows both, one is followed and the other remembered, though not without
/// bound.
template <bool hasChoice>
void PictureParser::extend(Match& best, std::size_t position, std::size_t limit, std::uint8_t first, std::size_t run)
{
    struct Fork {
        Code code;
        std::size_t end;
    };
    constexpr std::size_t maxForks = 16; // remembered at once
    constexpr int maxWays = 48;          // followed in all
    std::array<Fork, maxForks> forks;    // NOLINT(cppcoreguidelines-pro-type-member-init): as far as `forkCount` only
    std::size_t forkCount = 0;

    Code code = m_tree.runCode(first, static_cast<std::uint32_t>(run));
    std::size_t end = position + run;
    const std::uint8_t transparent = m_picture.transparentIndex;
    for (int way = 1;; ++way) {
        const std::size_t from = end;
        while (end < limit) {
            const std::uint8_t index = m_picture.indices[end];
            Code longer = m_tree.child(code, index);
            if (hasChoice && m_picture.isFree[end] != 0 && index != transparent) {
                const Code opaque = longer;
                longer = m_tree.child(code, transparent);
                if (longer == 0)
                    longer = opaque;
                else if (opaque != 0 && forkCount < maxForks)
                    forks[forkCount++] = {opaque, end + 1};
            }
            if (longer == 0)
                break;
            code = longer;
            ++end;
        }
        m_steps += static_cast<std::int64_t>(end - from) + 1;
        if (end - position > best.length)
            best = {.length = end - position, .code = code, .first = first};
        if (forkCount == 0 || way == maxWays)
            break;
        --forkCount;
        code = forks[forkCount].code;
        end = forks[forkCount].end;
    }
}

/// Assigns the code of the sequence before and the new one's first index. A decoder knows it by the time that it reads
/// the next code, which may thus be that very code.
void PictureParser::learn(Match& match, std::size_t limit)
{
    if (m_previous.length == 0 || m_tree.isFull())
        return;
    const Code code = m_tree.add(m_previous.code, match.first);
    if (code == 0)
        return;
    const std::size_t start = m_position - m_previous.length;
    m_starts[code] = static_cast<std::uint32_t>(start);

    const std::size_t length = m_previous.length + 1;
    if (m_previous.first != match.first || length <= match.length || m_position + length > limit)
        return;
    for (std::size_t i = 0; i < m_previous.length; ++i) {
        if (!mayBe(m_position + i, m_written[start + i]))
            return;
    }
    if (mayBe(m_position + m_previous.length, match.first))
        match = {.length = length, .code = code, .first = match.first};
}

/// Shortens `match` if that and what can follow it reach further.
void PictureParser::lookAhead(Match& match, std::size_t limit)
{
    const std::size_t position = m_position;
    Match ahead = longest(position + match.length, limit);
    std::size_t reach = match.length + ahead.length;
    std::size_t length = match.length;
    const std::size_t shortest = match.length > m_lookahead.pixels ? match.length - m_lookahead.pixels : 1;
    std::size_t gain = m_tree.isFull() ? 1 : m_lookahead.gain;
    for (std::size_t shorter = match.length - 1; shorter >= shortest && position + reach < limit; --shorter) {
        const Match candidate = longest(position + shorter, limit);
        if (shorter + candidate.length < reach + gain)
            continue;
        reach = shorter + candidate.length;
        length = shorter;
        ahead = candidate;
        gain = 1;
    }
    if (length < match.length) {
        write(match); // for its indices
        m_position = position;
        --m_codeCount;
        Code code = m_written[position];
        for (std::size_t i = 1; i < length; ++i)
            code = m_tree.child(code, m_written[position + i]);
        m_steps += static_cast<std::int64_t>(length);
        match.code = code;
        match.length = length;
    }
    m_ahead = ahead;
    m_aheadLimit = limit;
}

void PictureParser::write(const Match& match)
{
    if (m_picture.isFree.empty()) {
        // That is there already.
    } else if (match.length == 1) {
        m_written[m_position] = match.first;
    } else {
        const std::size_t start = m_starts[match.code];
        std::uint8_t* const to = &m_written[m_position];
        if (start + match.length <= m_position) {
            std::memcpy(to, &m_written[start], match.length);
        } else { // forward, byte by byte: the sequence reaches into its own copy
            for (std::size_t i = 0; i < match.length; ++i)
                to[i] = m_written[start + i];
        }
    }
    m_position += match.length;
    ++m_codeCount;
    m_previous = match;
}

} // namespace quillbox
