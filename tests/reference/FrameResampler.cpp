#include "reference/FrameResampler.h"

#include <algorithm>
#include <cmath>

namespace quillbox::reference {

PixelSize fittedSize(std::int64_t width, std::int64_t height, std::int64_t maxWidth)
{
    if (maxWidth >= width || maxWidth < 1 || height < 1)
        return {width, height};
    const double scale = static_cast<double>(maxWidth) / static_cast<double>(width);
    const double scaledHeight = scale * static_cast<double>(height);
    return {maxWidth, std::max<std::int64_t>(static_cast<std::int64_t>(std::round(scaledHeight)), 1)};
}

RGBAFrame boxFiltered(const RGBAFrame& frame, PixelSize size)
{
    Bytes output;
    for (std::int64_t y = 0; y < size.height; ++y) {
        const std::int64_t y0 = y * frame.height() / size.height;
        const std::int64_t y1 = std::max(y0 + 1, (y + 1) * frame.height() / size.height);
        for (std::int64_t x = 0; x < size.width; ++x) {
            const std::int64_t x0 = x * frame.width() / size.width;
            const std::int64_t x1 = std::max(x0 + 1, (x + 1) * frame.width() / size.width);
            for (std::int64_t channel = 0; channel < 4; ++channel) {
                std::int64_t sum = 0;
                std::int64_t count = 0;
                for (std::int64_t sy = y0; sy < y1; ++sy) {
                    for (std::int64_t sx = x0; sx < x1; ++sx) {
                        sum += frame.pixels()[static_cast<std::size_t>((sy * frame.width() + sx) * 4 + channel)];
                        ++count;
                    }
                }
                output.push_back(static_cast<std::uint8_t>(sum / count));
            }
        }
    }
    return {size.width, size.height, std::move(output)};
}

std::vector<RGBAFrame> cappedToWidth(std::span<const RGBAFrame> frames, std::optional<std::int64_t> maxWidth)
{
    std::vector<RGBAFrame> result(frames.begin(), frames.end());
    if (!maxWidth || frames.empty() || *maxWidth >= frames[0].width())
        return result;
    const PixelSize target = fittedSize(frames[0].width(), frames[0].height(), *maxWidth);
    if (target.width < 1 || target.height < 1)
        return result;
    for (RGBAFrame& frame : result) {
        if (frame.width() > target.width || frame.height() > target.height) {
            frame
                = boxFiltered(frame, {std::min(frame.width(), target.width), std::min(frame.height(), target.height)});
        }
    }
    return result;
}

} // namespace quillbox::reference
