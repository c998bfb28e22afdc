#include "Encoding/Precise/Codes/LZWSearch.h"

#include "Encoding/Precise/Codes/ClearCodes.h"
#include "Encoding/Precise/Codes/CodeWriter.h"
#include "Encoding/Precise/Codes/PictureParser.h"
#include "Encoding/Precondition.h"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>
#include <vector>

namespace quillbox::LZWSearch {
namespace {

/// The smallest index that no changed pixel has, if a pixel may be transparent.
std::optional<std::uint8_t> freeIndex(const Picture& picture)
{
    if (picture.freedoms.empty())
        return std::nullopt;
    std::array<bool, 256> isTaken{};
    bool hasChoice = false;
    for (std::size_t i = 0; i < picture.indices.size(); ++i) {
        if (picture.freedoms[i] == changed)
            isTaken[picture.indices[i]] = true;
        else
            hasChoice = true;
    }
    const auto free = std::ranges::find(isTaken, false);
    if (!hasChoice || free == isTaken.end())
        return std::nullopt;
    return static_cast<std::uint8_t>(free - isTaken.begin());
}

/// All codes of a picture but the first and the last one, with clear codes at `clears`.
std::vector<PictureParser::Code> parsed(PictureParser& parser, const FreePicture& picture,
    std::span<const std::size_t> clears, PictureParser::Lookahead lookahead)
{
    const auto clear = static_cast<PictureParser::Code>(1U << static_cast<unsigned>(picture.minCodeSize));
    const std::size_t count = picture.indices.size();
    std::vector<PictureParser::Code> codes;
    parser.setLookahead(lookahead);
    parser.begin(0);
    while (parser.position() < count) {
        if (!clears.empty() && parser.position() == clears.front()) {
            codes.push_back(clear);
            parser.begin(parser.position());
            clears = clears.subspan(1);
        }
        codes.push_back(parser.next(clears.empty() ? count : clears.front()));
    }
    parser.setLookahead({});
    return codes;
}

/// The stream of such codes.
Bytes written(const std::vector<PictureParser::Code>& codes, int minCodeSize)
{
    const CodeWidths widths(minCodeSize);
    const auto clear = 1U << static_cast<unsigned>(minCodeSize);
    CodeWriter writer;
    writer.write(clear, widths.after(0));
    std::int64_t count = 0; // since the clear code
    for (const PictureParser::Code code : codes) {
        writer.write(code, widths.after(count));
        count = code == clear ? 0 : count + 1;
    }
    writer.write(clear + 1, widths.after(count));
    return writer.finish();
}

/// Which pixels may be transparent if a run of one index that holds a changed pixel stays opaque.
void keepMixedRunsOpaque(const FreePicture& picture, Bytes& isFree)
{
    isFree.assign(picture.isFree.begin(), picture.isFree.end());
    for (std::size_t start = 0; start < isFree.size();) {
        std::size_t end = start;
        bool isUnchanged = true;
        for (; end < isFree.size() && picture.indices[end] == picture.indices[start]; ++end)
            isUnchanged = isUnchanged && isFree[end] != 0;
        if (!isUnchanged)
            std::fill_n(&isFree[start], end - start, std::uint8_t{0});
        start = end;
    }
}

/// Whether so many passes are too few for all that may help.
bool areFew(std::int64_t passes)
{
    return passes < 15;
}

/// One way to write a picture, and how it does with a clear code whenever the table is full.
struct Attempt {
    Candidate candidate = Candidate::opaque;
    FreePicture picture = {};
    ClearCodes::Division division = {};
};

} // namespace

struct Search::Tables {
    PictureParser parser;
    Bytes indices;     ///< those of pixels that are kept replaced
    Bytes transparent; ///< indices, every pixel transparent that may be
    Bytes consistent;  ///< which pixels may be transparent

    [[nodiscard]] std::span<const std::uint8_t> withKept(
        const Picture& picture, std::optional<std::uint8_t> transparentIndex);
    [[nodiscard]] Attempt attempt(Candidate candidate, const FreePicture& picture)
    {
        parser.setPicture(picture);
        return {candidate, picture, ClearCodes::whenFull(parser, picture)};
    }
    [[nodiscard]] Attempt smallest(Attempt opaque, FreePicture free, Effort effort);
    [[nodiscard]] Bytes refined(const Attempt& attempt, std::int64_t passes, std::int64_t onePass);
};

/// The picture's indices with the transparent one where pixels are kept.
std::span<const std::uint8_t> Search::Tables::withKept(
    const Picture& picture, std::optional<std::uint8_t> transparentIndex)
{
    if (std::ranges::find(picture.freedoms, kept) == picture.freedoms.end())
        return picture.indices;
    precondition(transparentIndex.has_value(), "pixels that are kept can be written as transparent");
    indices.assign(picture.indices.begin(), picture.indices.end());
    for (std::size_t i = 0; i < indices.size(); ++i) {
        if (picture.freedoms[i] == kept)
            indices[i] = *transparentIndex;
    }
    return indices;
}

/// The way that takes the fewest bits.
Attempt Search::Tables::smallest(Attempt opaque, FreePicture free, Effort effort)
{
    // Only small pictures have gained from `transparent`, which costs as much as any other.
    constexpr std::size_t maxPixelsForTransparent = 32'768;

    Attempt best = std::move(opaque);
    const auto consider = [&](Candidate candidate, const FreePicture& freePicture) {
        Attempt other = attempt(candidate, freePicture);
        if (other.division.placement.bits < best.division.placement.bits)
            best = std::move(other);
    };
    if (effort.passes < 3)
        return best;
    consider(Candidate::free, free);
    if (effort.passes < 5)
        return best;
    if (free.indices.size() <= maxPixelsForTransparent) {
        transparent.assign(free.indices.begin(), free.indices.end());
        for (std::size_t i = 0; i < transparent.size(); ++i) {
            if (free.isFree[i] != 0)
                transparent[i] = free.transparentIndex;
        }
        consider(Candidate::transparent,
            {.indices = transparent,
                .transparentIndex = free.transparentIndex,
                .minCodeSize = minCodeSizeFor(std::ranges::max(transparent))});
    }
    if (areFew(effort.passes)) // in large pictures it gains less than what else can be done in the time
        return best;
    keepMixedRunsOpaque(free, consistent);
    free.isFree = consistent;
    consider(Candidate::consistent, free);
    return best;
}

/// The codes of an attempt; with clear codes where they pay and lookahead if there are passes left for them.
Bytes Search::Tables::refined(const Attempt& attempt, std::int64_t passes, std::int64_t onePass)
{
    const int minCodeSize = attempt.picture.minCodeSize;
    if (passes <= 0)
        return written(attempt.division.codes, minCodeSize);
    parser.setPicture(attempt.picture);

    // Measured on screen recordings: ways that are 1,500 bits longer than another one hardly ever win, and few that are
    // 800 bits longer. Up to 64 marks one stands at every 60 codes; then fewer, down to one at every 240 codes, a
    // sixteenth of a table, and an eighth of it where effort is short.
    const bool hasFewPasses = areFew(passes);
    const std::size_t every
        = std::clamp<std::size_t>(attempt.division.marks.size() / 64, 1, 4) * (hasFewPasses ? 2 : 1);
    ClearCodes::Placement placement = ClearCodes::amongMarks(parser, attempt.picture,
        attempt.division.everyNthMark(every), {.margin = hasFewPasses ? 800 : 1500, .steps = passes * onePass});

    const bool clearsWhenFull = attempt.division.placement.bits < placement.bits;
    if (clearsWhenFull)
        placement = attempt.division.placement;
    const auto writtenWith = [&](PictureParser::Lookahead lookahead) {
        return written(parsed(parser, attempt.picture, placement.positions, lookahead), minCodeSize);
    };
    // How much looking ahead must gain to be worth more than learning differs from picture to picture.
    Bytes best = writtenWith({.pixels = hasFewPasses ? 4U : 5U, .gain = 2});
    const auto keepSmaller = [&](Bytes data) {
        if (data.size() < best.size())
            best = std::move(data);
    };
    if (!hasFewPasses)
        keepSmaller(writtenWith({.pixels = 5, .gain = 1}));
    if ((placement.bits + 7) / 8 < std::ssize(best))
        keepSmaller(clearsWhenFull ? written(attempt.division.codes, minCodeSize) : writtenWith({}));
    return best;
}

Search::Search()
    : m_tables(std::make_unique<Tables>())
{
}
Search::Search(Search&&) noexcept = default;
Search& Search::operator=(Search&&) noexcept = default;
Search::~Search() = default;

Codes Search::best(const Picture& picture, Effort effort)
{
    precondition(picture.width > 0 && !picture.indices.empty() && std::ssize(picture.indices) % picture.width == 0,
        "a picture has whole rows");
    precondition(picture.freedoms.empty() || picture.freedoms.size() == picture.indices.size(),
        "every pixel is known to be changed or not");
    precondition(effort.passes >= 1, "there is at least one pass");

    const auto transparentIndex = freeIndex(picture);
    FreePicture free{.indices = m_tables->withKept(picture, transparentIndex)};
    const bool hasKept = free.indices.data() != picture.indices.data();
    const std::uint8_t largest = std::ranges::max(free.indices);
    free.minCodeSize = minCodeSizeFor(largest);

    PictureParser& parser = m_tables->parser;
    const std::int64_t stepsBefore = parser.steps();
    Attempt attempt = m_tables->attempt(Candidate::opaque, free);
    const std::int64_t onePass = parser.steps() - stepsBefore;
    if (transparentIndex) {
        free.isFree = picture.freedoms;
        free.transparentIndex = *transparentIndex;
        free.minCodeSize = minCodeSizeFor(std::max(largest, *transparentIndex));
        attempt = m_tables->smallest(std::move(attempt), free, effort);
    }
    constexpr std::int64_t passesForWriting = 5;
    const std::int64_t passesLeft = effort.passes - passesForWriting - (parser.steps() - stepsBefore) / onePass;

    Codes codes{.minCodeSize = attempt.picture.minCodeSize, .winner = attempt.candidate};
    codes.data = m_tables->refined(attempt, passesLeft, onePass);
    if (hasKept || attempt.candidate != Candidate::opaque)
        codes.transparentIndex = transparentIndex;
    return codes;
}

std::int64_t Search::roughBits(const Picture& picture)
{
    const auto transparentIndex = freeIndex(picture);
    FreePicture free{.indices = m_tables->withKept(picture, transparentIndex)};
    const std::uint8_t largest = std::ranges::max(free.indices);
    free.minCodeSize = minCodeSizeFor(largest);
    const std::int64_t bits = m_tables->attempt(Candidate::opaque, free).division.placement.bits;
    if (!transparentIndex)
        return bits;
    free.isFree = picture.freedoms;
    free.transparentIndex = *transparentIndex;
    free.minCodeSize = minCodeSizeFor(std::max(largest, *transparentIndex));
    return std::min(bits, m_tables->attempt(Candidate::free, free).division.placement.bits);
}

} // namespace quillbox::LZWSearch
