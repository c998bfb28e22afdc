#include "Encoding/Precise/LZWSearch.h"

#include "Encoding/LZW.h"
#include "Encoding/Precondition.h"

#include <algorithm>
#include <array>
#include <bit>

namespace quillbox::LZWSearch {
namespace {

/// GIF's literals have two bits at least.
int minCodeSizeFor(std::uint8_t largestIndex)
{
    return std::max(static_cast<int>(std::bit_width(unsigned{largestIndex})), 2);
}

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

} // namespace

struct Search::Tables {
    LZW::Encoder encoder;
    Bytes indices;
};

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

    const bool hasKept = std::ranges::find(picture.freedoms, kept) != picture.freedoms.end();
    const auto transparentIndex = freeIndex(picture);
    precondition(!hasKept || transparentIndex, "pixels that are kept can be written as transparent");

    Codes best;
    if (!hasKept) {
        best.minCodeSize = minCodeSizeFor(std::ranges::max(picture.indices));
        const auto opaque = m_tables->encoder.encode(picture.indices, best.minCodeSize);
        best.data.assign(opaque.begin(), opaque.end());
    }
    if (transparentIndex) {
        Bytes& indices = m_tables->indices;
        indices.assign(picture.indices.begin(), picture.indices.end());
        for (std::size_t i = 0; i < indices.size(); ++i) {
            if (picture.freedoms[i] != changed)
                indices[i] = *transparentIndex;
        }
        const int minCodeSize = minCodeSizeFor(std::ranges::max(indices));
        const auto transparent = m_tables->encoder.encode(indices, minCodeSize);
        if (hasKept || transparent.size() < best.data.size()) {
            best = {.data = Bytes(transparent.begin(), transparent.end()),
                .minCodeSize = minCodeSize,
                .transparentIndex = transparentIndex,
                .winner = Candidate::transparent};
        }
    }
    return best;
}

} // namespace quillbox::LZWSearch
