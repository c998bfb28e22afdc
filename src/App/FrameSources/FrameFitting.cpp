#include "App/FrameSources/FrameFitting.h"

#include "Encoding/FrameResampler.h"
#include "Encoding/Precondition.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace quillbox {
namespace {

/// The largest size of the same proportions within `room`; never larger than `frame` itself.
PixelSize fitted(const RGBAFrame& frame, PixelSize room)
{
    const auto share = [](std::int64_t available, std::int64_t wanted) {
        return static_cast<double>(available) / static_cast<double>(wanted);
    };
    const double scale = std::min({1.0, share(room.width, frame.width()), share(room.height, frame.height())});
    const auto side = [scale](std::int64_t whole, std::int64_t most) {
        return std::clamp<std::int64_t>(std::llround(static_cast<double>(whole) * scale), 1, std::min(whole, most));
    };
    return {side(frame.width(), room.width), side(frame.height(), room.height)};
}

} // namespace

RGBAFrame FrameFitting::onCanvas(const RGBAFrame& frame, PixelSize size, RGBColor background)
{
    precondition(std::min({size.width, size.height, frame.width(), frame.height()}) > 0, "pictures have pixels");
    if (frame.width() == size.width && frame.height() == size.height)
        return frame;
    const auto target = fitted(frame, size);
    const bool isWhole = target.width == frame.width() && target.height == frame.height();
    const RGBAFrame small = isWhole ? frame : FrameResampler::boxFiltered(frame, target);
    const PixelView source = small.pixels();

    Bytes pixels(static_cast<std::size_t>(checkedMul(checkedMul(size.width, size.height), 4)));
    const std::array<std::uint8_t, 4> empty{background.r, background.g, background.b, 255};
    for (std::size_t i = 0; i < pixels.size(); i += empty.size())
        std::copy(empty.begin(), empty.end(), pixels.begin() + static_cast<std::ptrdiff_t>(i));
    const std::int64_t left = (size.width - small.width()) / 2;
    const std::int64_t top = (size.height - small.height()) / 2;
    for (std::int64_t y = 0; y < small.height(); ++y) {
        std::copy_n(source.data() + y * small.width() * 4, small.width() * 4,
            pixels.begin() + ((top + y) * size.width + left) * 4);
    }
    return {size.width, size.height, std::move(pixels)};
}

RGBAFrame FrameFitting::cropped(const RGBAFrame& frame, std::int64_t left, std::int64_t top, PixelSize size)
{
    precondition(left >= 0 && top >= 0 && size.width > 0 && size.height > 0 && left + size.width <= frame.width()
            && top + size.height <= frame.height(),
        "the part lies in the frame");
    Bytes pixels(static_cast<std::size_t>(size.width * size.height * 4));
    auto output = pixels.begin();
    for (std::int64_t band = 0; band < frame.bandCount(); ++band) { // as they come, without the whole frame at once
        const std::int64_t firstRow = band * RGBAFrame::rowsPerBand;
        const std::int64_t begin = std::max(firstRow, top);
        const std::int64_t end = std::min(firstRow + frame.rowsOfBand(band), top + size.height);
        if (begin >= end)
            continue;
        const PixelView rows = frame.band(band);
        for (std::int64_t y = begin; y < end; ++y)
            output = std::copy_n(rows.data() + ((y - firstRow) * frame.width() + left) * 4, size.width * 4, output);
    }
    return {size.width, size.height, std::move(pixels)};
}

} // namespace quillbox
