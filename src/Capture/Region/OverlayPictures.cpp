#include "Capture/Region/OverlayPictures.h"

#include "Capture/Region/SelectionWindow.h"
#include "Encoding/Precondition.h"

#include <QColor>
#include <QImage>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <utility>

namespace quillbox {
namespace {

RGBAFrame cut(const RGBAFrame& frame, const PixelRect& part)
{
    precondition(
        part.x >= 0 && part.y >= 0 && part.x + part.width <= frame.width() && part.y + part.height <= frame.height(),
        "a part lies within the whole");
    const PixelView source = frame.pixels();
    const auto rowBytes = part.width * RGBAFrame::bytesPerPixel;
    Bytes pixels(static_cast<std::size_t>(part.area() * RGBAFrame::bytesPerPixel));
    for (std::int64_t y = 0; y < part.height; ++y)
        std::memcpy(pixels.data() + y * rowBytes,
            source.data() + ((part.y + y) * frame.width() + part.x) * RGBAFrame::bytesPerPixel,
            static_cast<std::size_t>(rowBytes));
    return RGBAFrame(part.width, part.height, std::move(pixels));
}

/// What the overlay makes of each level of a channel.
/// @param fill  Of that channel, 0…1.
std::array<std::uint8_t, 256> veiledLevels(float fill)
{
    std::array<std::uint8_t, 256> levels{};
    for (std::size_t level = 0; level < levels.size(); ++level) {
        const float dimmed = static_cast<float>(level) * (1 - SelectionWindow::dimming);
        const float filled = dimmed * (1 - SelectionWindow::fillOpacity) + fill * 255 * SelectionWindow::fillOpacity;
        levels[level] = static_cast<std::uint8_t>(std::clamp(std::lround(filled), 0L, 255L));
    }
    return levels;
}

RGBAFrame veiled(const RGBAFrame& frame)
{
    const QColor accent = SelectionWindow::accentColor();
    const std::array channels{veiledLevels(accent.redF()), veiledLevels(accent.greenF()), veiledLevels(accent.blueF())};
    Bytes pixels(frame.pixels());
    for (std::size_t pixel = 0; pixel < pixels.size(); pixel += RGBAFrame::bytesPerPixel)
        for (std::size_t channel = 0; channel < channels.size(); ++channel)
            pixels[pixel + channel] = channels[channel][pixels[pixel + channel]];
    return RGBAFrame(frame.width(), frame.height(), std::move(pixels));
}

} // namespace

OverlayRemains OverlayPictures::remainsOf(const RGBAFrame& backdrop, const CaptureGeometry& geometry)
{
    const RGBAFrame uncovered = scaledTo(cut(backdrop, geometry.source), geometry.output);
    return {uncovered, veiled(uncovered)};
}

RGBAFrame OverlayPictures::frameOf(const QPixmap& picture)
{
    const QImage image = picture.toImage().convertToFormat(QImage::Format_RGBX8888);
    const auto rowBytes = image.width() * RGBAFrame::bytesPerPixel;
    Bytes pixels(static_cast<std::size_t>(image.height() * rowBytes));
    for (int y = 0; y < image.height(); ++y)
        std::memcpy(pixels.data() + y * rowBytes, image.constScanLine(y), static_cast<std::size_t>(rowBytes));
    return RGBAFrame(image.width(), image.height(), std::move(pixels));
}

} // namespace quillbox
