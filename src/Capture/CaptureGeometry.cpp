#include "Capture/CaptureGeometry.h"

#include "Encoding/FrameResampler.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace quillbox {

namespace {

struct Span {
    std::int64_t begin = 0;
    std::int64_t length = 0;
};

/// The part of begin…begin+length that lies in 0…limit. A region may hold any 64-bit numbers.
Span cut(std::int64_t begin, std::int64_t length, std::int64_t limit)
{
    if (begin >= limit)
        return {};
    if (begin < 0) {
        length += begin; // opposite signs: no overflow
        begin = 0;
    }
    return {begin, std::clamp<std::int64_t>(length, 0, limit - begin)};
}

Span toDevice(Span points, double scale, std::int64_t limit)
{
    const auto edge = [&](std::int64_t point) {
        return std::clamp<std::int64_t>(std::llround(static_cast<double>(point) * scale), 0, limit);
    };
    const std::int64_t begin = std::min(edge(points.begin), limit - 1);
    return {begin, std::max<std::int64_t>(edge(points.begin + points.length) - begin, 1)};
}

std::int64_t pointsOf(std::int64_t pixels, double scale)
{
    return std::max<std::int64_t>(std::llround(static_cast<double>(pixels) / scale), 1);
}

std::optional<CaptureGeometry> planned(CaptureRegion region, PixelRect display, PixelSize limit, PointScale scales)
{
    region = region.normalized();
    const Span columns = cut(region.x, region.width, limit.width);
    const Span rows = cut(region.y, region.height, limit.height);
    if (columns.length == 0 || rows.length == 0)
        return std::nullopt;
    const Span x = toDevice(columns, scales.x, display.width);
    const Span y = toDevice(rows, scales.y, display.height);
    CaptureGeometry plan;
    plan.source = {static_cast<std::int32_t>(display.x + x.begin), static_cast<std::int32_t>(display.y + y.begin),
        static_cast<std::int32_t>(x.length), static_cast<std::int32_t>(y.length)};
    plan.output = {columns.length, rows.length};
    return plan;
}

RGBAFrame nearest(const RGBAFrame& frame, PixelSize size)
{
    Bytes pixels(static_cast<std::size_t>(checkedMul(checkedMul(size.width, size.height), RGBAFrame::bytesPerPixel)));
    std::uint8_t* destination = pixels.data();
    const PixelView source = frame.pixels();
    for (std::int64_t y = 0; y < size.height; ++y) {
        const std::int64_t sourceRow = y * frame.height() / size.height * frame.width();
        for (std::int64_t x = 0; x < size.width; ++x) {
            const std::int64_t pixel = sourceRow + x * frame.width() / size.width;
            std::memcpy(destination, source.data() + pixel * RGBAFrame::bytesPerPixel, RGBAFrame::bytesPerPixel);
            destination += RGBAFrame::bytesPerPixel;
        }
    }
    return RGBAFrame(size.width, size.height, std::move(pixels));
}

} // namespace

PointScale scaleOf(PixelSize pixels, PixelSize points)
{
    precondition(
        points.width > 0 && points.height > 0 && pixels.width > 0 && pixels.height > 0, "a display has an extent");
    return {static_cast<double>(pixels.width) / static_cast<double>(points.width),
        static_cast<double>(pixels.height) / static_cast<double>(points.height)};
}

PixelRect devicePixelsOf(CaptureRegion region, PointScale scale)
{
    constexpr std::int64_t farthest = 1 << 30;
    region = region.normalized();
    const Span x = toDevice({region.x, region.width}, scale.x, farthest);
    const Span y = toDevice({region.y, region.height}, scale.y, farthest);
    return {static_cast<std::int32_t>(x.begin), static_cast<std::int32_t>(y.begin), static_cast<std::int32_t>(x.length),
        static_cast<std::int32_t>(y.length)};
}

PixelSize sizeInPoints(PixelRect display, double scale)
{
    return {pointsOf(display.width, scale), pointsOf(display.height, scale)};
}

std::optional<CaptureGeometry> captureGeometry(CaptureRegion region, PixelRect display, double scale)
{
    precondition(scale > 0 && !display.isEmpty(), "a display has an extent and a scale");
    return planned(region, display, sizeInPoints(display, scale), {scale, scale});
}

std::optional<CaptureGeometry> captureGeometry(CaptureRegion region, PixelRect display, PixelSize points)
{
    return planned(region, display, points, scaleOf({display.width, display.height}, points));
}

RGBAFrame scaledTo(const RGBAFrame& frame, PixelSize size)
{
    precondition(frame.width() > 0 && frame.height() > 0 && size.width > 0 && size.height > 0, "a frame has pixels");
    if (frame.width() == size.width && frame.height() == size.height)
        return frame;
    if (frame.width() < size.width || frame.height() < size.height)
        return nearest(frame, size);
    return FrameResampler::boxFiltered(frame, size);
}

} // namespace quillbox
