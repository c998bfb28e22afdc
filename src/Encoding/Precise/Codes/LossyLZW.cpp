#include "Encoding/Precise/Codes/LossyLZW.h"

#include "Encoding/Precise/Codes/ClearCodes.h"
#include "Encoding/Precise/Codes/CodeWriter.h"
#include "Encoding/Precise/Codes/LossyParser.h"
#include "Encoding/Precondition.h"

#include <algorithm>
#include <array>

namespace quillbox::LossyLZW {
namespace {

void expectWellFormed(const Picture& picture, Loss loss)
{
    const std::size_t count = picture.indices.size();
    precondition(picture.width > 0 && count > 0 && static_cast<std::int64_t>(count) % picture.width == 0,
        "a picture has whole rows");
    precondition(picture.wanted.size() == count, "every pixel has a colour that is wanted");
    precondition(picture.shown.empty() || picture.shown.size() == count, "every pixel shows something or none does");
    precondition(picture.durations.empty() || picture.durations.size() == count, "every pixel has a duration or none");
    precondition(!picture.colorTable.empty() && picture.colorTable.size() <= 256, "a table has 1 to 256 colours");
    precondition(std::ranges::max(picture.indices) < picture.colorTable.size(), "every index is in the table");
    precondition(
        loss.price >= 0 && loss.price <= std::int64_t{1} << 24 && loss.maxError >= 0 && loss.maxError <= 3 * 255 * 255,
        "the price and the largest error are in range");
}

/// The smallest index that no pixel's nearest colour has.
std::optional<std::uint8_t> unusedIndex(std::span<const std::uint8_t> indices)
{
    std::array<bool, 256> isTaken{};
    for (const std::uint8_t index : indices)
        isTaken[index] = true;
    const auto free = std::ranges::find(isTaken, false);
    if (free == isTaken.end())
        return std::nullopt;
    return static_cast<std::uint8_t>(free - isTaken.begin());
}

/// How each pixel may be written: `transparentIndex` stands for those that stay as they are.
Bytes freedomsOf(const Picture& picture, Bytes& indices, std::optional<std::uint8_t> transparentIndex)
{
    Bytes freedoms(indices.size());
    for (std::size_t i = 0; i < indices.size(); ++i) {
        const bool stays = transparentIndex == indices[i];
        if (stays)
            indices[i] = picture.indices[i]; // which it may be written in, too, if that looks the same
        const bool looksTheSame = picture.colorTable[indices[i]] == picture.shown[i];
        freedoms[i] = looksTheSame ? LZWSearch::unchanged : stays ? LZWSearch::kept : LZWSearch::changed;
    }
    return freedoms;
}

} // namespace

struct Encoder::Tables {
    PictureParser exactParser;
    LossyParser parser;
    LZWSearch::Search search;

    [[nodiscard]] Result exact(const Picture& picture, LZWSearch::Effort effort);
    [[nodiscard]] ClearCodes::Placement clearsOfExact(
        FreePicture exact, std::span<const std::uint8_t> freedoms, LZWSearch::Effort effort);
    [[nodiscard]] Result inexact(const Picture& picture, Loss loss, LZWSearch::Effort effort);
};

/// Every pixel in its nearest colour.
Result Encoder::Tables::exact(const Picture& picture, LZWSearch::Effort effort)
{
    Result result{.codes = {}, .indices = Bytes(picture.indices.begin(), picture.indices.end()), .freedoms = {}};
    if (!picture.shown.empty())
        result.freedoms = freedomsOf(picture, result.indices, std::nullopt);
    result.codes
        = search.best({.width = picture.width, .indices = result.indices, .freedoms = result.freedoms}, effort);
    return result;
}

/// The best clear codes for exact pixels, be they all opaque or transparent where they are free to be.
ClearCodes::Placement Encoder::Tables::clearsOfExact(
    FreePicture exact, std::span<const std::uint8_t> freedoms, LZWSearch::Effort effort)
{
    exactParser.setPicture(exact);
    const std::int64_t stepsBefore = exactParser.steps();
    ClearCodes::Division division = ClearCodes::whenFull(exactParser, exact);
    const std::int64_t onePass = exactParser.steps() - stepsBefore;
    if (effort.passes == 1)
        return division.placement;
    if (!freedoms.empty()) {
        FreePicture free = exact;
        free.isFree = freedoms;
        exactParser.setPicture(free);
        ClearCodes::Division other = ClearCodes::whenFull(exactParser, free);
        if (other.placement.bits < division.placement.bits) {
            division = std::move(other);
            exact = free;
        }
        exactParser.setPicture(exact);
    }
    constexpr std::size_t every = 8; // marks: an eighth of a table
    return ClearCodes::amongMarks(
        exactParser, exact, division.everyNthMark(every), {.margin = 500, .steps = effort.passes * onePass});
}

/// The pixels' choice goes with the codes: found again by another parse, the same pixels take a tenth more bytes. Hence
/// clear codes stand where they are best for exact pixels.
Result Encoder::Tables::inexact(const Picture& picture, Loss loss, LZWSearch::Effort effort)
{
    const auto transparentIndex = picture.shown.empty() ? std::nullopt : unusedIndex(picture.indices);
    const std::uint8_t largest = std::ranges::max(picture.indices);
    const int minCodeSize = minCodeSizeFor(std::max(largest, transparentIndex.value_or(0)));
    const FreePicture opaque{
        .indices = picture.indices, .transparentIndex = transparentIndex.value_or(0), .minCodeSize = minCodeSize};
    Bytes exactIndices(picture.indices.begin(), picture.indices.end());
    const Bytes freedoms = transparentIndex ? freedomsOf(picture, exactIndices, std::nullopt) : Bytes();
    const ClearCodes::Placement placement = clearsOfExact(opaque, freedoms, effort);

    Result result;
    result.codes
        = {.data = parser.encode(picture, loss,
               {.transparentIndex = transparentIndex, .minCodeSize = minCodeSize, .clears = placement.positions}),
            .minCodeSize = minCodeSize,
            .transparentIndex = transparentIndex,
            .winner = transparentIndex ? LZWSearch::Candidate::free : LZWSearch::Candidate::opaque};
    const auto chosen = parser.chosen();
    result.indices.assign(chosen.begin(), chosen.end());
    for (std::size_t i = 0; i < chosen.size(); ++i) {
        const std::int64_t duration = picture.durations.empty() ? 1 : picture.durations[i];
        result.error += parser.errorOf(i, chosen[i]) * duration;
    }
    if (!picture.shown.empty())
        result.freedoms = freedomsOf(picture, result.indices, transparentIndex);
    return result;
}

Encoder::Encoder()
    : m_tables(std::make_unique<Tables>())
{
}
Encoder::Encoder(Encoder&&) noexcept = default;
Encoder& Encoder::operator=(Encoder&&) noexcept = default;
Encoder::~Encoder() = default;

Result Encoder::encode(const Picture& picture, Loss loss, LZWSearch::Effort effort)
{
    expectWellFormed(picture, loss);
    if (loss.maxError == 0)
        return m_tables->exact(picture, effort);
    Result inexact = m_tables->inexact(picture, loss, effort);
    // Errors can be bought in vain. Where a hasty look is far from showing that, a thorough one need not be taken.
    constexpr std::int64_t hastyPasses = 4;
    Result exact = m_tables->exact(picture, {.passes = std::min(effort.passes, hastyPasses)});
    const auto inexactSize = std::ssize(inexact.codes.data);
    if (std::ssize(exact.codes.data) * 9 < inexactSize * 10 && effort.passes > hastyPasses)
        exact = m_tables->exact(picture, effort);
    return std::ssize(exact.codes.data) <= inexactSize ? std::move(exact) : std::move(inexact);
}

} // namespace quillbox::LossyLZW
