#include "Encoding/Precise/Codes/PictureParser.h"

#include "Encoding/Precondition.h"

#include <limits>

namespace quillbox {
namespace {

/// How many pixels from each on belong together, counted up to what fits.
template <typename Joins> void countRuns(std::vector<std::uint16_t>& runs, std::size_t count, Joins&& joinsNext)
{
    runs.resize(count);
    std::uint16_t run = 0;
    for (std::size_t i = count; i-- > 0;) {
        const bool joins = i + 1 < count && joinsNext(i);
        run = joins ? static_cast<std::uint16_t>(run + (run < std::numeric_limits<std::uint16_t>::max() ? 1 : 0))
                    : std::uint16_t{1};
        runs[i] = run;
    }
}

} // namespace

void PictureParser::setPicture(const FreePicture& picture)
{
    m_picture = picture;
    const std::size_t count = picture.indices.size();
    precondition(picture.isFree.empty() || picture.isFree.size() == count, "every pixel is free or not");
    m_written.assign(picture.indices.begin(), picture.indices.end());
    m_starts.resize(CodeTree::maxCodes);
    countRuns(m_runs, count, [&](std::size_t i) { return picture.indices[i] == picture.indices[i + 1]; });
    if (!picture.isFree.empty())
        countRuns(m_freeRuns, count, [&](std::size_t i) { return picture.isFree[i + 1] != 0; });
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
    if (m_picture.isFree.empty()) {
        extend<false>(best, position, limit, index, m_runs[position]);
        return best;
    }
    const bool free = isFree(position);
    if (free)
        extend<true>(best, position, limit, m_picture.transparentIndex, m_freeRuns[position]);
    if (!free || index != m_picture.transparentIndex)
        extend<true>(best, position, limit, index, m_runs[position]);
    return best;
}

/// Looks for a longer sequence than `best` that begins with a run of `first`. Where the next pixel may be either of two
/// indices and the tree knows both, one is followed and the other remembered, though not without bound.
template <bool hasChoice>
void PictureParser::extend(
    Match& best, std::size_t position, std::size_t limit, std::uint8_t first, std::size_t runLength)
{
    struct Fork {
        Code code;
        std::size_t end;
    };
    constexpr std::size_t maxForks = 16; // remembered at once
    constexpr int maxWays = 48;          // followed in all
    std::array<Fork, maxForks> forks;    // NOLINT(cppcoreguidelines-pro-type-member-init): as far as `forkCount` only
    std::size_t forkCount = 0;

    const std::size_t run = std::min({runLength, std::size_t{m_tree.longestRun(first)}, limit - position});
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
        // All is written as it stands.
    } else if (match.length == 1) {
        m_written[m_position] = match.first;
    } else { // forward, byte by byte: the sequence may reach into its own copy
        const std::size_t start = m_starts[match.code];
        for (std::size_t i = 0; i < match.length; ++i)
            m_written[m_position + i] = m_written[start + i];
    }
    m_position += match.length;
    ++m_codeCount;
    m_previous = match;
}

} // namespace quillbox
