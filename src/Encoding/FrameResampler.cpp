#include "Encoding/FrameResampler.h"

#include "Encoding/Multiversion.h"
#include "Encoding/SmallBlockFilter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

namespace quillbox::FrameResampler {
namespace {

/// Source columns or rows `begin` ≤ i < `end` that one output column or row is made of; never empty.
struct Span {
    std::int64_t begin = 0;
    std::int64_t end = 0;

    [[nodiscard]] std::int64_t length() const { return end - begin; }
};

Span sourceSpan(std::int64_t output, std::int64_t sourceLength, std::int64_t outputLength)
{
    const std::int64_t begin = checkedMul(output, sourceLength) / outputLength;
    const std::int64_t end = checkedMul(output + 1, sourceLength) / outputLength;
    return {begin, std::max(begin + 1, end)};
}

/// A pixel's four channels, each summed over a block.
using ChannelSums = std::uint32_t __attribute__((vector_size(16)));
using ChannelBytes = std::uint8_t __attribute__((vector_size(4)));

/// Divides sums of `count` bytes by `count` exactly, by one multiplication.
///
/// With M = ⌈2^23 ÷ count⌉ the quotient sum · M ÷ 2^23 is too large by less than sum · count ÷ 2^23 ÷ count, which
/// stays below 1 ÷ count, and so rounds down rightly, while 255 · count² < 2^23. The product fits 32 bits.
struct MediumDivider {
    static constexpr std::int64_t maxCount = 181;
    static_assert(255 * maxCount * maxCount < 1 << 23U);

    std::uint32_t multiplier = 0;

    explicit MediumDivider(std::int64_t count)
        : multiplier(static_cast<std::uint32_t>(((1 << 23U) + count - 1) / count))
    {
    }
    [[gnu::always_inline]] ChannelSums operator()(ChannelSums sums) const { return sums * multiplier >> 23U; }
};

/// Divides plainly.
struct LargeDivider {
    static constexpr std::int64_t maxCount = 0xFFFF'FFFF / 255; ///< a sum of as many bytes fits 32 bits

    std::uint32_t count = 0;

    explicit LargeDivider(std::int64_t blockCount)
        : count(static_cast<std::uint32_t>(blockCount))
    {
    }
    [[gnu::always_inline]] ChannelSums operator()(ChannelSums sums) const { return sums / count; }
};

/// One output row's work.
struct RowTask {
    std::span<const std::uint8_t* const> rows; ///< source rows to average
    std::size_t rowBytes;                      ///< of a source row
    std::span<const Span> columns;             ///< one an output pixel
    std::int64_t shortestColumn;               ///< every column is this long or one longer
    std::uint32_t* sums;                       ///< scratch, one a source byte of a row
    std::uint8_t* output;
};

template <typename Divider> [[gnu::always_inline]] inline void filterRow(const RowTask& task)
{
    const std::uint8_t* first = task.rows.front();
    for (std::size_t i = 0; i < task.rowBytes; ++i)
        task.sums[i] = first[i];
    for (const std::uint8_t* source : task.rows.subspan(1)) {
        for (std::size_t i = 0; i < task.rowBytes; ++i)
            task.sums[i] += source[i];
    }

    const std::int64_t rows = std::ssize(task.rows);
    const std::array dividers{Divider(task.shortestColumn * rows), Divider((task.shortestColumn + 1) * rows)};
    std::uint8_t* output = task.output;
    for (const Span column : task.columns) {
        ChannelSums total{};
        for (std::int64_t x = column.begin; x < column.end; ++x) {
            ChannelSums pixel;
            std::memcpy(&pixel, task.sums + 4 * x, sizeof pixel);
            total += pixel;
        }
        const ChannelSums mean = dividers[static_cast<std::size_t>(column.length() - task.shortestColumn)](total);
        const ChannelBytes bytes = __builtin_convertvector(mean, ChannelBytes);
        std::memcpy(output, &bytes, sizeof bytes);
        output += sizeof bytes;
    }
}

QUILLBOX_MULTIVERSION void filterRowOfMediumBlocks(const RowTask& task)
{
    filterRow<MediumDivider>(task);
}
void filterRowOfLargeBlocks(const RowTask& task)
{
    filterRow<LargeDivider>(task);
}

/// Sums of 64 bits, which no block can exceed.
void filterRowOfHugeBlocks(const RowTask& task)
{
    std::uint8_t* output = task.output;
    for (const Span column : task.columns) {
        std::array<std::uint64_t, RGBAFrame::bytesPerPixel> sums{};
        for (const std::uint8_t* source : task.rows) {
            for (std::int64_t x = column.begin; x < column.end; ++x) {
                for (std::size_t channel = 0; channel < sums.size(); ++channel)
                    sums[channel] += source[4 * x + static_cast<std::int64_t>(channel)];
            }
        }
        const auto count = static_cast<std::uint64_t>(checkedMul(column.length(), std::ssize(task.rows)));
        for (const std::uint64_t sum : sums)
            *output++ = static_cast<std::uint8_t>(sum / count);
    }
}

/// Where a picture's rows are, which its bands keep. Only bands that hold some of `wanted` are looked at.
class Rows {
public:
    Rows(const RGBAFrame& frame, Span wanted)
        : m_first(wanted.begin / RGBAFrame::rowsPerBand * RGBAFrame::rowsPerBand)
    {
        const std::int64_t rowBytes = frame.width() * RGBAFrame::bytesPerPixel;
        m_places.reserve(static_cast<std::size_t>(wanted.length() + 2 * RGBAFrame::rowsPerBand));
        for (std::int64_t index = m_first / RGBAFrame::rowsPerBand; index * RGBAFrame::rowsPerBand < wanted.end;
             ++index) {
            const PixelView& band = m_bands.emplace_back(frame.band(index));
            for (std::int64_t row = 0; row < frame.rowsOfBand(index); ++row)
                m_places.push_back(band.data() + row * rowBytes);
        }
    }

    [[nodiscard]] std::span<const std::uint8_t* const> operator[](Span rows) const
    {
        return std::span(m_places).subspan(
            static_cast<std::size_t>(rows.begin - m_first), static_cast<std::size_t>(rows.length()));
    }

private:
    std::int64_t m_first;
    std::vector<PixelView> m_bands;
    std::vector<const std::uint8_t*> m_places;
};

/// A picture on its way to another size.
struct Shrinking {
    Rows source;
    PixelSize from;
    PixelSize to;
    std::int64_t firstRow; ///< wanted of the output
    std::uint8_t* output;  ///< of the first row wanted
};

/// Calls `visit(source rows, output row)` for each output row of `rows`.
template <typename Visitor> void forEachOutputRow(const Shrinking& task, Span rows, Visitor&& visit)
{
    for (std::int64_t y = rows.begin; y < rows.end; ++y) {
        visit(task.source[sourceSpan(y, task.from.height, task.to.height)],
            task.output + (y - task.firstRow) * task.to.width * RGBAFrame::bytesPerPixel);
    }
}

void filterSmallBlocks(const Shrinking& task, Span rows)
{
    SmallBlockFilter filter(task.from.width, task.to.width);
    forEachOutputRow(task, rows, [&filter](std::span<const std::uint8_t* const> source, std::uint8_t* output) {
        filter.filterRow(source, output);
    });
}

/// @param blockBound  No block has more source pixels.
void filterBlocks(const Shrinking& task, std::int64_t blockBound, Span rows)
{
    std::vector<Span> columns;
    columns.reserve(static_cast<std::size_t>(task.to.width));
    for (std::int64_t x = 0; x < task.to.width; ++x)
        columns.push_back(sourceSpan(x, task.from.width, task.to.width));
    std::vector<std::uint32_t> sums(static_cast<std::size_t>(task.from.width * RGBAFrame::bytesPerPixel));

    // NOLINTNEXTLINE(readability-non-const-parameter): written through the row's task
    forEachOutputRow(task, rows, [&](std::span<const std::uint8_t* const> source, std::uint8_t* output) {
        const RowTask row{.rows = source,
            .rowBytes = sums.size(),
            .columns = columns,
            .shortestColumn = task.from.width / task.to.width,
            .sums = sums.data(),
            .output = output};
        if (blockBound <= MediumDivider::maxCount)
            filterRowOfMediumBlocks(row);
        else if (blockBound <= LargeDivider::maxCount)
            filterRowOfLargeBlocks(row);
        else
            filterRowOfHugeBlocks(row);
    });
}

void copyRows(const RGBAFrame& frame, RowRange rows, std::span<std::uint8_t> output)
{
    const auto rowBytes = static_cast<std::size_t>(frame.width() * RGBAFrame::bytesPerPixel);
    const Rows source(frame, {rows.begin, rows.end});
    for (std::int64_t y = rows.begin; y < rows.end; ++y)
        std::memcpy(output.data() + static_cast<std::size_t>(y - rows.begin) * rowBytes, source[Span{y, y + 1}].front(),
            rowBytes);
}

std::int64_t blockBoundOf(PixelSize from, PixelSize to)
{
    return checkedMul(from.width / to.width + 1, from.height / to.height + 1);
}

void checkShrinking(const RGBAFrame& frame, PixelSize size)
{
    precondition(size.width >= 0 && size.width <= frame.width() && size.height >= 0 && size.height <= frame.height(),
        "the box filter only shrinks");
}

void filter(const Shrinking& task, Span rows)
{
    const std::int64_t blockBound = blockBoundOf(task.from, task.to);
    if (blockBound <= SmallBlockFilter::maxCount)
        filterSmallBlocks(task, rows);
    else
        filterBlocks(task, blockBound, rows);
}

} // namespace

PixelSize fittedSize(std::int64_t width, std::int64_t height, std::int64_t maxWidth)
{
    if (maxWidth >= width || maxWidth < 1 || height < 1)
        return {width, height};
    const double scaled = static_cast<double>(maxWidth) / static_cast<double>(width) * static_cast<double>(height);
    return {maxWidth, std::max<std::int64_t>(std::llround(scaled), 1)};
}

RGBAFrame boxFiltered(const RGBAFrame& frame, PixelSize size, ForkJoinThread* side)
{
    checkShrinking(frame, size);
    if (size.width == 0 || size.height == 0)
        return {size.width, size.height, {}};
    Bytes output(static_cast<std::size_t>(checkedMul(checkedMul(size.width, size.height), RGBAFrame::bytesPerPixel)));
    const Shrinking task{.source = Rows(frame, {0, frame.height()}),
        .from = {frame.width(), frame.height()},
        .to = size,
        .firstRow = 0,
        .output = output.data()};
    const std::int64_t middle = size.height / 2;
    if (side)
        side->runBoth([&] { filter(task, {0, middle}); }, [&] { filter(task, {middle, size.height}); });
    else
        filter(task, {0, size.height});
    return {size.width, size.height, std::move(output)};
}

void boxFilterRows(const RGBAFrame& frame, PixelSize size, RowRange rows, std::span<std::uint8_t> output)
{
    checkShrinking(frame, size);
    precondition(0 <= rows.begin && rows.begin <= rows.end && rows.end <= size.height
            && std::ssize(output) == (rows.end - rows.begin) * size.width * RGBAFrame::bytesPerPixel,
        "the rows wanted are rows of the output");
    if (output.empty())
        return;
    if (size == PixelSize{frame.width(), frame.height()})
        return copyRows(frame, rows, output);
    const Span wanted{sourceSpan(rows.begin, frame.height(), size.height).begin,
        sourceSpan(rows.end - 1, frame.height(), size.height).end};
    const Shrinking task{.source = Rows(frame, wanted),
        .from = {frame.width(), frame.height()},
        .to = size,
        .firstRow = rows.begin,
        .output = output.data()};
    filter(task, {rows.begin, rows.end});
}

RowRange rowsMadeOf(RowRange source, std::int64_t sourceHeight, std::int64_t outputHeight)
{
    if (source.begin >= source.end)
        return {};
    std::int64_t begin = checkedMul(source.begin, outputHeight) / sourceHeight;
    std::int64_t end = begin + 1;
    while (begin > 0 && sourceSpan(begin - 1, sourceHeight, outputHeight).end > source.begin)
        --begin;
    while (end < outputHeight && sourceSpan(end, sourceHeight, outputHeight).begin < source.end)
        ++end;
    return {begin, end};
}

WidthCap::WidthCap(const RGBAFrame& first, std::optional<std::int64_t> maxWidth)
{
    if (!maxWidth || *maxWidth >= first.width())
        return;
    const PixelSize target = fittedSize(first.width(), first.height(), *maxWidth);
    if (target.width >= 1 && target.height >= 1)
        m_target = target;
}

PixelSize WidthCap::size(const RGBAFrame& frame) const
{
    const PixelSize own{frame.width(), frame.height()};
    return m_target ? PixelSize{std::min(own.width, m_target->width), std::min(own.height, m_target->height)} : own;
}

RGBAFrame WidthCap::applied(const RGBAFrame& frame, ForkJoinThread* side) const
{
    const PixelSize target = size(frame);
    return target == PixelSize{frame.width(), frame.height()} ? frame : boxFiltered(frame, target, side);
}

std::vector<RGBAFrame> cappedToWidth(
    std::span<const RGBAFrame> frames, std::optional<std::int64_t> maxWidth, Parallelism parallelism)
{
    std::vector<RGBAFrame> capped(frames.begin(), frames.end());
    if (frames.empty())
        return capped;
    const WidthCap cap(frames.front(), maxWidth);
    if (cap.isNone())
        return capped;
    parallelFor(parallelism, std::ssize(capped), [&](std::int64_t item, int) {
        RGBAFrame& frame = capped[static_cast<std::size_t>(item)];
        frame = cap.applied(frame);
    });
    return capped;
}

} // namespace quillbox::FrameResampler
