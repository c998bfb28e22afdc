#include "Encoding/FrameResampler.h"

#include "Encoding/Multiversion.h"

#include <algorithm>
#include <array>
#include <cmath>

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

/// Divides sums of `count` bytes by `count` exactly, by one multiplication.
///
/// With M = ⌈2^40 ÷ count⌉ the result of (sum · M) ≫ 40 is off by less than sum · count ÷ 2^40 ÷ count, which is
/// below 1 ÷ count, and so rounds down rightly, while 255 · count² < 2^40. Larger blocks divide plainly.
class Divider {
public:
    explicit Divider(std::int64_t count)
        : m_count(static_cast<std::uint64_t>(count))
        , m_multiplier(count <= largestCount ? ((std::uint64_t{1} << 40U) + m_count - 1) / m_count : 0)
    {
    }

    [[nodiscard]] std::uint8_t operator()(std::uint64_t sum) const
    {
        return static_cast<std::uint8_t>(m_multiplier != 0 ? sum * m_multiplier >> 40U : sum / m_count);
    }

private:
    static constexpr std::int64_t largestCount = 65'000; // 255 · 65000² is 1.08 · 10^12; 2^40 is 1.10 · 10^12
    static_assert(255 * largestCount * largestCount < std::int64_t{1} << 40U);

    std::uint64_t m_count;
    std::uint64_t m_multiplier;
};

constexpr std::int64_t largestSpan = 0xFFFF'FFFF / 255; ///< rows whose bytes a 32-bit sum can hold

/// Adds a row of bytes to a row of sums.
QUILLBOX_MULTIVERSION void addRow(const std::uint8_t* row, std::size_t count, std::uint32_t* sums)
{
    for (std::size_t i = 0; i < count; ++i)
        sums[i] += row[i];
}

} // namespace

Size fittedSize(std::int64_t width, std::int64_t height, std::int64_t maxWidth)
{
    if (maxWidth >= width || maxWidth < 1 || height < 1)
        return {width, height};
    const double scaled = static_cast<double>(maxWidth) / static_cast<double>(width) * static_cast<double>(height);
    return {maxWidth, std::max<std::int64_t>(std::llround(scaled), 1)};
}

RGBAFrame boxFiltered(const RGBAFrame& frame, Size size)
{
    const std::int64_t sourceWidth = frame.width();
    const std::int64_t sourceHeight = frame.height();
    precondition(size.width >= 0 && size.width <= sourceWidth && size.height >= 0 && size.height <= sourceHeight,
        "the box filter only shrinks");
    if (size.width == 0 || size.height == 0)
        return {size.width, size.height, {}};
    precondition(sourceHeight / size.height < largestSpan, "a column of a block is summed in 32 bits");

    std::vector<Span> columns;
    columns.reserve(static_cast<std::size_t>(size.width));
    for (std::int64_t x = 0; x < size.width; ++x)
        columns.push_back(sourceSpan(x, sourceWidth, size.width));

    Bytes output(static_cast<std::size_t>(checkedMul(checkedMul(size.width, size.height), RGBAFrame::bytesPerPixel)));
    const auto rowBytes = static_cast<std::size_t>(sourceWidth * RGBAFrame::bytesPerPixel);
    std::vector<std::uint32_t> sums(rowBytes);
    std::uint8_t* next = output.data();
    for (std::int64_t y = 0; y < size.height; ++y) {
        const Span rows = sourceSpan(y, sourceHeight, size.height);
        std::ranges::fill(sums, 0U);
        for (std::int64_t row = rows.begin; row < rows.end; ++row)
            addRow(frame.pixels().data() + static_cast<std::size_t>(row) * rowBytes, rowBytes, sums.data());

        // Neighbouring spans differ in length by at most one, so two dividers serve a whole row.
        const std::int64_t shortest = sourceWidth / size.width;
        const std::array dividers{Divider(shortest * rows.length()), Divider((shortest + 1) * rows.length())};
        for (const Span column : columns) {
            std::array<std::uint64_t, 4> total{};
            for (std::int64_t x = column.begin; x < column.end; ++x) {
                for (std::size_t channel = 0; channel < 4; ++channel)
                    total[channel] += sums[static_cast<std::size_t>(4 * x) + channel];
            }
            const Divider& divided = dividers[static_cast<std::size_t>(column.length() - shortest)];
            for (std::size_t channel = 0; channel < 4; ++channel)
                *next++ = divided(total[channel]);
        }
    }
    return {size.width, size.height, std::move(output)};
}

std::vector<RGBAFrame> cappedToWidth(
    std::span<const RGBAFrame> frames, std::optional<std::int64_t> maxWidth, Parallelism parallelism)
{
    std::vector<RGBAFrame> capped(frames.begin(), frames.end());
    if (!maxWidth || frames.empty() || *maxWidth >= frames.front().width())
        return capped;
    const Size target = fittedSize(frames.front().width(), frames.front().height(), *maxWidth);
    if (target.width < 1 || target.height < 1)
        return capped;

    parallelFor(parallelism, std::ssize(capped), [&](std::int64_t item, int) {
        RGBAFrame& frame = capped[static_cast<std::size_t>(item)];
        if (frame.width() > target.width || frame.height() > target.height)
            frame
                = boxFiltered(frame, {std::min(frame.width(), target.width), std::min(frame.height(), target.height)});
    });
    return capped;
}

} // namespace quillbox::FrameResampler
