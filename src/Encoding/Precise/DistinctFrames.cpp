#include "Encoding/Precise/DistinctFrames.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <memory>
#include <utility>

namespace quillbox {
namespace {

static_assert(std::endian::native == std::endian::little, "red is the low byte of a loaded pixel");
constexpr std::uint32_t colorMask = 0x00FF'FFFF;
constexpr std::uint32_t opaque = 0xFF00'0000;

RGBColor colorOf(std::uint32_t pixel)
{
    return {static_cast<std::uint8_t>(pixel), static_cast<std::uint8_t>(pixel >> 8U),
        static_cast<std::uint8_t>(pixel >> 16U)};
}

/// Adds weights to colours, of which many in a row are the same.
class RunCounter {
public:
    explicit RunCounter(ColorCounts& counts)
        : m_counts(counts)
    {
    }
    ~RunCounter() { flush(); }
    RunCounter(const RunCounter&) = delete;
    RunCounter& operator=(const RunCounter&) = delete;

    void add(std::uint32_t color, std::int64_t weight)
    {
        if (color != m_color) {
            flush();
            m_color = color;
        }
        m_weight += weight;
    }

private:
    void flush()
    {
        if (m_weight > 0)
            m_counts.add(colorOf(m_color), m_weight);
        m_weight = 0;
    }

    ColorCounts& m_counts;
    std::uint32_t m_color = 0;
    std::int64_t m_weight = 0;
};

} // namespace

DistinctFrames::DistinctFrames(Options options)
    : m_options(std::move(options))
    , m_sampler(m_options.sourceFPS, m_options.maxFPS)
{
    precondition(m_options.sourceFPS >= 1 && m_options.maxFPS >= 1, "rates are positive");
}

void DistinctFrames::append(const RGBAFrame& frame)
{
    ++m_frameCount;
    if (m_tooLarge || !m_sampler.keepsNext() || (m_previous && frame.sharesPixels(*m_previous)))
        return;
    try {
        GIFEncoder::checkSize(frame.width(), frame.height());
    } catch (const GIFEncodingError& error) {
        m_tooLarge = error.dimensionTooLarge();
        return;
    }
    if (m_previous)
        take(frame);
    else
        begin(frame);
    m_previous = frame;
}

void DistinctFrames::begin(const RGBAFrame& frame)
{
    precondition(frame.pixelCount() > 0, "the first frame has pixels");
    m_recordedSize = {frame.width(), frame.height()};
    m_size = m_options.maxWidth ? FrameResampler::fittedSize(frame.width(), frame.height(), *m_options.maxWidth)
                                : m_recordedSize;
    m_screen.resize(static_cast<std::size_t>(m_size.width * m_size.height));
    m_changedBy.assign(m_screen.size(), 0);
    FrameResampler::boxFilterRows(frame, m_size, {0, m_size.height},
        {reinterpret_cast<std::uint8_t*>(m_screen.data()), m_screen.size() * sizeof(std::uint32_t)});
    addPicture({.area = {0, 0, m_size.width, m_size.height}});
}

void DistinctFrames::take(const RGBAFrame& frame)
{
    // As `FrameResampler::WidthCap`: what is no larger than the screen stays as it is.
    const PixelSize size{
        .width = std::min(frame.width(), m_size.width), .height = std::min(frame.height(), m_size.height)};
    if (size.width == 0 || size.height == 0)
        return;
    Change change;
    std::vector<std::uint32_t> pixels;
    for (const FrameResampler::RowRange changed : changedRows(frame)) {
        const auto rows = FrameResampler::rowsMadeOf(changed, frame.height(), size.height);
        pixels.resize(static_cast<std::size_t>((rows.end - rows.begin) * size.width));
        FrameResampler::boxFilterRows(
            frame, size, rows, {reinterpret_cast<std::uint8_t*>(pixels.data()), pixels.size() * sizeof(std::uint32_t)});
        for (std::int64_t y = rows.begin; y < rows.end; ++y) {
            overwrite(y,
                std::span(pixels).subspan(
                    static_cast<std::size_t>((y - rows.begin) * size.width), static_cast<std::size_t>(size.width)),
                change);
        }
    }
    if (!change.area.isEmpty())
        addPicture(change);
}

/// Rows of the frame that differ from the frame before, and perhaps others near them.
std::vector<FrameResampler::RowRange> DistinctFrames::changedRows(const RGBAFrame& frame) const
{
    if (frame.width() != m_previous->width() || frame.height() != m_previous->height())
        return {{0, frame.height()}};
    const auto rowBytes = static_cast<std::size_t>(frame.width() * RGBAFrame::bytesPerPixel);
    std::vector<FrameResampler::RowRange> ranges;
    for (std::int64_t index = 0; index < frame.bandCount(); ++index) {
        if (frame.sharesBand(*m_previous, index))
            continue;
        const PixelView now = frame.band(index);
        const PixelView before = m_previous->band(index);
        const std::int64_t top = index * RGBAFrame::rowsPerBand;
        for (std::int64_t row = 0; row < frame.rowsOfBand(index); ++row) {
            const std::size_t offset = static_cast<std::size_t>(row) * rowBytes;
            if (std::memcmp(now.data() + offset, before.data() + offset, rowBytes) == 0)
                continue;
            if (ranges.empty() || ranges.back().end < top + row)
                ranges.push_back({top + row, top + row});
            ranges.back().end = top + row + 1;
        }
    }
    return ranges;
}

void DistinctFrames::overwrite(std::int64_t row, std::span<const std::uint32_t> pixels, Change& change)
{
    const auto count = std::ssize(pixels);
    std::uint32_t* const shown = m_screen.data() + row * m_size.width;
    std::uint32_t* const changedBy = m_changedBy.data() + row * m_size.width;
    if (std::memcmp(shown, pixels.data(), pixels.size_bytes()) == 0)
        return;
    const auto number = static_cast<std::uint32_t>(m_pictures.size());
    const std::int64_t tick = m_frameCount - 1;
    std::int64_t first = count;
    std::int64_t last = -1;
    RunCounter colors(m_colors);
    for (std::int64_t x = 0; x < count; ++x) {
        const std::uint32_t pixel = pixels[static_cast<std::size_t>(x)];
        if (((pixel ^ shown[x]) & colorMask) == 0)
            continue;
        Picture& from = m_pictures[changedBy[x]];
        from.pixelTicks += tick - from.tick;
        colors.add(shown[x] & colorMask, tick - from.tick);
        change.squared += colorOf(pixel).distanceSquared(colorOf(shown[x]));
        shown[x] = pixel;
        changedBy[x] = number;
        first = std::min(first, x);
        last = x;
    }
    if (last >= 0)
        change.area = change.area.united({first, row, last - first + 1, 1});
}

void DistinctFrames::addPicture(const Change& change)
{
    const PictureArea& area = change.area;
    const auto number = static_cast<std::uint32_t>(m_pictures.size());
    std::int64_t changed = 0;
    const auto pixelsOf = [&](std::int64_t firstRow, std::int64_t rows) {
        Bytes pixels(static_cast<std::size_t>(rows * area.width * RGBAFrame::bytesPerPixel));
        std::uint8_t* output = pixels.data();
        for (std::int64_t y = area.top + firstRow; y < area.top + firstRow + rows; ++y) {
            const auto first = static_cast<std::size_t>(y * m_size.width + area.left);
            for (std::size_t i = first; i < first + static_cast<std::size_t>(area.width); ++i) {
                const bool isChanged = m_changedBy[i] == number;
                const std::uint32_t pixel = (m_screen[i] & colorMask) | (isChanged ? opaque : 0);
                changed += isChanged ? 1 : 0;
                std::memcpy(output, &pixel, sizeof pixel);
                output += sizeof pixel;
            }
        }
        return pixels;
    };
    const auto inBands = [&] {
        std::vector<RGBAFrame::Band> bands;
        for (std::int64_t row = 0; row < area.height; row += RGBAFrame::rowsPerBand) {
            const std::int64_t rows = std::min(RGBAFrame::rowsPerBand, area.height - row);
            bands.push_back(std::make_shared<const PixelBand>(pixelsOf(row, rows)));
        }
        return RGBAFrame::ofBands(area.width, area.height, std::move(bands));
    };
    RGBAFrame picture = m_options.onKept ? inBands() : RGBAFrame(area.width, area.height, pixelsOf(0, area.height));
    if (m_options.onKept)
        m_options.onKept(picture);
    m_pictures.push_back({.area = area,
        .pixels = std::move(picture),
        .tick = m_frameCount - 1,
        .changedPixels = changed,
        .pixelTicks = 0,
        .squaredChange = change.squared});
}

DistinctFrames::Recording DistinctFrames::recording() const
{
    precondition(m_frameCount > 0, "there is a frame to show");
    if (m_tooLarge)
        throw GIFEncodingError(*m_tooLarge);
    Recording result{.size = m_size,
        .recordedSize = m_recordedSize,
        .sourceFPS = m_options.sourceFPS,
        .maxFPS = m_options.maxFPS,
        .frameCount = m_frameCount,
        .pictures = m_pictures,
        .colors = {}};
    ColorCounts colors = m_colors;
    {
        RunCounter counter(colors);
        for (std::size_t i = 0; i < m_screen.size(); ++i) {
            Picture& from = result.pictures[m_changedBy[i]];
            const std::int64_t ticks = m_frameCount - from.tick;
            from.pixelTicks += ticks;
            counter.add(m_screen[i] & colorMask, ticks);
        }
    }
    result.colors = colors.entries();
    return result;
}

DistinctFrames::Recording DistinctFrames::Recording::shrunk(std::int64_t toWidth) const
{
    DistinctFrames frames({.sourceFPS = sourceFPS, .maxWidth = toWidth, .maxFPS = std::max(maxFPS, sourceFPS)});
    Bytes screen(static_cast<std::size_t>(size.width * size.height * RGBAFrame::bytesPerPixel), 0);
    for (std::size_t i = 0; i < pictures.size(); ++i) {
        const auto& picture = pictures[i];
        const PixelView pixels = picture.pixels.pixels();
        const auto rowBytes = static_cast<std::size_t>(picture.area.width * RGBAFrame::bytesPerPixel);
        for (std::int64_t y = 0; y < picture.area.height; ++y) {
            std::copy_n(pixels.data() + static_cast<std::size_t>(y) * rowBytes, rowBytes,
                screen.data()
                    + static_cast<std::size_t>(
                        ((picture.area.top + y) * size.width + picture.area.left) * RGBAFrame::bytesPerPixel));
        }
        const RGBAFrame frame(size.width, size.height, screen);
        const std::int64_t end = i + 1 < pictures.size() ? pictures[i + 1].tick : frameCount;
        for (std::int64_t tick = picture.tick; tick < end; ++tick)
            frames.append(frame);
    }
    DistinctFrames::Recording result = frames.recording();
    result.maxFPS = maxFPS;
    return result;
}

} // namespace quillbox
