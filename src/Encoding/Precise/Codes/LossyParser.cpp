#include "Encoding/Precise/Codes/LossyParser.h"

#include "Encoding/Precise/Codes/CodeWriter.h"

#include <algorithm>

namespace quillbox::LossyLZW {
namespace {

constexpr std::size_t maxWays = 16; // remembered at once
constexpr int maxFollowed = 24;     // for each sequence
constexpr std::size_t maxFinalists = 6;

} // namespace

/// Whether it costs less for each pixel, if a code has `bits`.
bool LossyParser::Match::isBetterThan(const Match& other, std::int64_t bits) const
{
    const auto total = [bits](const Match& match) {
        return (bits << 16) + match.price;
    };
    return total(*this) * static_cast<std::int64_t>(other.length) < total(other) * static_cast<std::int64_t>(length);
}

std::int64_t LossyParser::excess(std::size_t position, RGBColor color) const
{
    const RGBColor wanted = m_picture.wanted[position];
    const RGBColor nearest = m_picture.colorTable[m_picture.indices[position]];
    return std::max<std::int64_t>(wanted.distanceSquared(color) - wanted.distanceSquared(nearest), 0);
}

std::int64_t LossyParser::errorOf(std::size_t position, std::uint8_t index) const
{
    if (index == m_picture.indices[position])
        return 0;
    const bool stays = m_isTransparent && index == m_transparentIndex;
    return excess(position, stays ? m_picture.shown[position] : m_picture.colorTable[index]);
}

/// Nothing if the error is too large or too dear.
std::optional<std::int64_t> LossyParser::priceOf(std::size_t position, std::uint8_t index) const
{
    const std::int64_t error = errorOf(position, index);
    if (error > m_loss.maxError)
        return std::nullopt;
    const std::int64_t duration = m_picture.durations.empty() ? 1 : m_picture.durations[position];
    const std::int64_t price = error * duration * m_loss.price;
    // More than any sequence saves, and little enough that sums and products of prices and lengths fit 64 bits.
    constexpr std::int64_t maxPrice = std::int64_t{4096} << 16;
    if (price > maxPrice)
        return std::nullopt;
    return price;
}

/// For each colour those that a pixel next to it could take.
void LossyParser::findNearColors()
{
    const auto count = static_cast<std::int64_t>(m_picture.colorTable.size());
    std::vector<std::pair<std::int64_t, std::uint8_t>> others;
    for (std::int64_t i = 0; i < count; ++i) {
        others.clear();
        const RGBColor color = m_picture.colorTable[static_cast<std::size_t>(i)];
        for (std::int64_t k = 0; k < count; ++k) {
            const std::int64_t distance = color.distanceSquared(m_picture.colorTable[static_cast<std::size_t>(k)]);
            const bool isTransparent = m_isTransparent && k == m_transparentIndex;
            // A pixel half-way between two colours is not far from either.
            if (k != i && !isTransparent && distance <= 4 * m_loss.maxError)
                others.emplace_back(distance, static_cast<std::uint8_t>(k));
        }
        const std::size_t near = std::min(others.size(), maxNear);
        std::partial_sort(others.begin(), others.begin() + static_cast<std::ptrdiff_t>(near), others.end());
        m_nearCount[static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(near);
        for (std::size_t k = 0; k < near; ++k)
            m_near[static_cast<std::size_t>(i)][k] = others[k].second;
    }
}

void LossyParser::push(const Way& way)
{
    if (m_ways.size() < maxWays)
        m_ways.push_back(way);
}

/// Continues a way as long as that is free of errors.
void LossyParser::follow(Way& way) const
{
    for (; way.end < m_limit; ++way.end) {
        Code longer = m_tree.child(way.code, m_picture.indices[way.end]);
        if (longer == 0 && m_isTransparent && errorOf(way.end, m_transparentIndex) == 0)
            longer = m_tree.child(way.code, m_transparentIndex);
        if (longer == 0)
            return;
        way.code = longer;
    }
}

/// Remembers how a way that can't go on otherwise would do so with errors; the one that adds the least is on top.
void LossyParser::branch(const Way& way)
{
    if (way.end == m_limit)
        return;
    std::array<Way, maxNear + 1> branches;
    std::size_t count = 0;
    const auto consider = [&](std::uint8_t index) {
        const auto price = priceOf(way.end, index);
        const Code longer = price ? m_tree.child(way.code, index) : Code{0};
        if (longer != 0)
            branches[count++] = {longer, way.first, way.end + 1, way.price + *price};
    };
    const std::uint8_t index = m_picture.indices[way.end];
    if (m_isTransparent)
        consider(m_transparentIndex);
    for (std::size_t k = 0; k < m_nearCount[index]; ++k)
        consider(m_near[index][k]);
    std::stable_sort(branches.begin(), branches.begin() + static_cast<std::ptrdiff_t>(count),
        [](const Way& a, const Way& b) { return a.price > b.price; });
    for (std::size_t i = 0; i < count; ++i)
        push(branches[i]);
}

/// The sequence that is best for a code of `bits`.
LossyParser::Match LossyParser::best(std::size_t position, std::int64_t bits)
{
    m_ways.clear();
    const std::uint8_t index = m_picture.indices[position];
    const auto begin = [&](std::uint8_t first) {
        if (const auto price = priceOf(position, first))
            push({.code = first, .first = first, .end = position + 1, .price = *price});
    };
    for (std::size_t k = std::min<std::size_t>(m_nearCount[index], 2); k-- > 0;)
        begin(m_near[index][k]);
    begin(index);
    if (m_isTransparent)
        begin(m_transparentIndex);

    m_matches.clear();
    for (int followed = 0; followed < maxFollowed && !m_ways.empty(); ++followed) {
        Way way = m_ways.back();
        m_ways.pop_back();
        follow(way);
        m_matches.push_back({.length = way.end - position, .code = way.code, .first = way.first, .price = way.price});
        branch(way);
    }
    // Errors that only take what the next code would have held anyway are worth nothing: what counts is how far two
    // codes reach.
    const std::size_t finalists = std::min(m_matches.size(), maxFinalists);
    std::partial_sort(m_matches.begin(), m_matches.begin() + static_cast<std::ptrdiff_t>(finalists), m_matches.end(),
        [bits](const Match& a, const Match& b) { return a.isBetterThan(b, bits); });
    std::size_t chosen = 0;
    Match longest;
    for (std::size_t i = 0; i < finalists; ++i) {
        Match both = m_matches[i];
        both.length += lengthWithoutErrors(position + both.length);
        if (i == 0 || both.isBetterThan(longest, 2 * bits)) {
            longest = both;
            chosen = i;
        }
    }
    return m_matches[chosen];
}

/// How far the next code reaches.
std::size_t LossyParser::lengthWithoutErrors(std::size_t position) const
{
    if (position >= m_limit)
        return 0;
    Way way{.code = m_picture.indices[position], .end = position + 1};
    follow(way);
    std::size_t end = way.end;
    if (m_isTransparent && errorOf(position, m_transparentIndex) == 0) {
        way = {.code = m_transparentIndex, .end = position + 1};
        follow(way);
        end = std::max(end, way.end);
    }
    return end - position;
}

/// Assigns the code of the sequence before and the new one's first index, and takes it if it is the better one.
void LossyParser::learn(Match& match, std::size_t position, std::int64_t bits)
{
    if (m_previous.length == 0 || m_tree.isFull())
        return;
    const Code code = m_tree.add(m_previous.code, match.first);
    if (code == 0)
        return;
    const std::size_t start = position - m_previous.length;
    m_starts[code] = static_cast<std::uint32_t>(start);
    Match again{.length = m_previous.length + 1, .code = code, .first = match.first};
    if (m_previous.first != match.first || position + again.length > m_limit)
        return;
    for (std::size_t i = 0; i < again.length; ++i) {
        const std::uint8_t index = i < m_previous.length ? m_chosen[start + i] : match.first;
        const auto price = priceOf(position + i, index);
        if (!price)
            return;
        again.price += *price;
    }
    if (again.isBetterThan(match, bits))
        match = again;
}

Bytes LossyParser::encode(const Picture& picture, Loss loss, const Form& form)
{
    m_picture = picture;
    m_loss = loss;
    m_isTransparent = form.transparentIndex.has_value() && !picture.shown.empty();
    m_transparentIndex = form.transparentIndex.value_or(0);
    const std::uint32_t clear = 1U << static_cast<unsigned>(form.minCodeSize);
    m_picture.colorTable = picture.colorTable.first(std::min<std::size_t>(picture.colorTable.size(), clear));
    findNearColors();

    const std::size_t count = picture.indices.size();
    m_chosen.resize(count);
    m_starts.resize(CodeTree::maxCodes);
    m_ways.reserve(maxWays);
    const CodeWidths widths(form.minCodeSize);
    CodeWriter writer;
    std::size_t position = 0;
    std::int64_t codeCount = 0;
    writer.write(clear, widths.after(0));
    for (std::size_t part = 0; part <= form.clears.size(); ++part) {
        if (part > 0)
            writer.write(clear, widths.after(codeCount));
        m_limit = part < form.clears.size() ? form.clears[part] : count;
        m_tree.reset(form.minCodeSize);
        m_previous = {};
        for (codeCount = 0; position < m_limit; ++codeCount) {
            const int bits = widths.after(codeCount);
            Match match = best(position, bits);
            learn(match, position, bits);
            writer.write(match.code, bits);
            m_chosen[position] = match.first;
            const std::size_t start = match.length > 1 ? m_starts[match.code] : position;
            for (std::size_t i = 1; i < match.length; ++i) // byte by byte: the sequence may reach into its own copy
                m_chosen[position + i] = m_chosen[start + i];
            position += match.length;
            m_previous = match;
        }
    }
    writer.write(clear + 1, widths.after(codeCount));
    return writer.finish();
}

} // namespace quillbox::LossyLZW
