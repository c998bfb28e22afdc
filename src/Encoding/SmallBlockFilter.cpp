#include "Encoding/SmallBlockFilter.h"

#include "Encoding/Multiversion.h"
#include "Encoding/Precondition.h"

#include <bit>
#include <cstring>

namespace quillbox {
namespace {

static_assert(std::endian::native == std::endian::little, "a pixel's first channel is the low part of its sums");

/// What twice the sum of `count` bytes is multiplied by to give 2^16 times their mean.
///
/// With M = ⌈2^15 ÷ count⌉ the quotient sum · M ÷ 2^15 is too large by less than sum · count ÷ 2^15 ÷ count, which
/// stays below 1 ÷ count, and so rounds down rightly, while 255 · count² < 2^15.
std::uint16_t multiplierFor(std::int64_t count)
{
    return static_cast<std::uint16_t>(((1 << 15U) + count - 1) / count);
}
static_assert(255 * SmallBlockFilter::maxCount * SmallBlockFilter::maxCount < 1 << 15U);

/// Adds up rows byte by byte. @param sums  One of 16 bits a byte of a row.
QUILLBOX_MULTIVERSION void sumRows(
    const std::uint8_t* const* rows, std::size_t rowCount, std::size_t rowBytes, std::uint64_t* sums)
{
    const auto store = [sums](std::size_t i, std::uint16_t sum) {
        std::memcpy(reinterpret_cast<char*>(sums) + 2 * i, &sum, sizeof sum);
    };
    const auto load = [sums](std::size_t i) {
        std::uint16_t sum = 0;
        std::memcpy(&sum, reinterpret_cast<const char*>(sums) + 2 * i, sizeof sum);
        return sum;
    };
    const std::uint8_t* first = rows[0];
    for (std::size_t i = 0; i < rowBytes; ++i)
        store(i, first[i]);
    for (std::size_t row = 1; row < rowCount; ++row) {
        const std::uint8_t* source = rows[row];
        for (std::size_t i = 0; i < rowBytes; ++i)
            store(i, static_cast<std::uint16_t>(load(i) + source[i]));
    }
}

/// Adds up each column's pixels.
template <int ShortestColumn>
void sumColumns(const std::uint64_t* rowSums, const std::vector<std::uint32_t>& begins,
    const std::vector<std::uint64_t>& longerMasks, std::uint64_t* blockSums)
{
    for (std::size_t x = 0; x < begins.size(); ++x) {
        const std::uint64_t* pixels = rowSums + begins[x];
        std::uint64_t sum = pixels[ShortestColumn] & longerMasks[x];
        for (int i = 0; i < ShortestColumn; ++i)
            sum += pixels[i];
        blockSums[x] = sum;
    }
}

/// The version of `sumColumns` whose shortest column is that long.
auto columnAdder(std::int64_t shortestColumn)
{
    static_assert((5 + 1) * (1 + 1) > SmallBlockFilter::maxCount, "longer columns belong to larger blocks");
    switch (shortestColumn) {
    case 1:
        return sumColumns<1>;
    case 2:
        return sumColumns<2>;
    case 3:
        return sumColumns<3>;
    default:
        return sumColumns<4>;
    }
}

/// Divides all sums by their blocks' sizes.
QUILLBOX_MULTIVERSION void writeMeans(const std::uint64_t* blockSums, const std::uint64_t* longerMasks,
    std::size_t pixels, std::uint16_t shorterMultiplier, std::uint16_t longerMultiplier, std::uint8_t* output)
{
    for (std::size_t i = 0; i < 4 * pixels; ++i) {
        std::uint16_t sum = 0;
        std::uint16_t mask = 0;
        std::memcpy(&sum, reinterpret_cast<const char*>(blockSums) + 2 * i, sizeof sum);
        std::memcpy(&mask, reinterpret_cast<const char*>(longerMasks) + 2 * i, sizeof mask);
        const auto multiplier = static_cast<std::uint16_t>((mask & longerMultiplier) | (~mask & shorterMultiplier));
        const auto doubled = static_cast<std::uint16_t>(2 * sum);
        output[i] = static_cast<std::uint8_t>(std::uint32_t{doubled} * multiplier >> 16U);
    }
}

} // namespace

SmallBlockFilter::SmallBlockFilter(std::int64_t sourceWidth, std::int64_t outputWidth)
    : m_shortestColumn(sourceWidth / outputWidth)
    , m_rowSums(static_cast<std::size_t>(sourceWidth) + 1)
    , m_blockSums(static_cast<std::size_t>(outputWidth))
{
    m_begins.reserve(m_blockSums.size());
    m_longerMasks.reserve(m_blockSums.size());
    for (std::int64_t x = 0; x < outputWidth; ++x) {
        const std::int64_t begin = x * sourceWidth / outputWidth;
        const std::int64_t end = (x + 1) * sourceWidth / outputWidth;
        m_begins.push_back(static_cast<std::uint32_t>(begin));
        m_longerMasks.push_back(end - begin > m_shortestColumn ? ~PackedSums{0} : 0);
    }
}

void SmallBlockFilter::filterRow(std::span<const std::uint8_t* const> rows, std::uint8_t* output)
{
    const std::int64_t rowCount = std::ssize(rows);
    sumRows(rows.data(), rows.size(), 4 * (m_rowSums.size() - 1), m_rowSums.data());
    columnAdder(m_shortestColumn)(m_rowSums.data(), m_begins, m_longerMasks, m_blockSums.data());
    writeMeans(m_blockSums.data(), m_longerMasks.data(), m_blockSums.size(), multiplierFor(m_shortestColumn * rowCount),
        multiplierFor((m_shortestColumn + 1) * rowCount), output);
}

} // namespace quillbox
