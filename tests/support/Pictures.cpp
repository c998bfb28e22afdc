#include "support/Pictures.h"

#include <algorithm>

namespace quillbox::support {

namespace {

std::uint8_t toByte(std::int64_t value)
{
    return static_cast<std::uint8_t>(std::clamp<std::int64_t>(value, 0, 255));
}

RGBColor randomColor(Random& random)
{
    return {random.byte(), random.byte(), random.byte()};
}

/// A wave between 0 and 255 with a period of 510.
std::uint8_t wave(std::int64_t position)
{
    const std::int64_t phase = position % 510;
    return toByte(phase < 255 ? phase : 510 - phase);
}

/// Coverage, 0…255, of the glyph-like pattern at a place on an endless page.
std::int64_t inkAt(std::int64_t x, std::int64_t y)
{
    const std::int64_t line = y / 16;
    const std::int64_t column = x / 8;
    const std::uint64_t letter = static_cast<std::uint64_t>(line * 131 + column * 7 + 12345) * 2654435761U >> 7U;
    const bool blank = y % 16 < 3 || y % 16 > 12 || x % 8 > 6 || column % 9 == 8 || letter % 11 == 0;
    if (blank)
        return 0;
    const std::uint64_t cell = letter >> static_cast<unsigned>((y % 16 / 3 * 3 + x % 8 / 3) % 20);
    return cell % 4 == 0 ? 255 : cell % 4 == 1 ? 96 : 0;
}

} // namespace

RGBAFrame picture(
    std::int64_t width, std::int64_t height, const std::function<RGBColor(std::int64_t x, std::int64_t y)>& colorAt)
{
    Bytes pixels;
    pixels.reserve(static_cast<std::size_t>(width * height * 4));
    for (std::int64_t y = 0; y < height; ++y) {
        for (std::int64_t x = 0; x < width; ++x) {
            const RGBColor color = colorAt(x, y);
            pixels.insert(pixels.end(), {color.r, color.g, color.b, 255});
        }
    }
    return {width, height, std::move(pixels)};
}

RGBAFrame row(std::span<const RGBColor> colors)
{
    return rows(std::ssize(colors), colors);
}

RGBAFrame rows(std::int64_t width, std::span<const RGBColor> colors)
{
    return picture(width, std::ssize(colors) / width,
        [&](std::int64_t x, std::int64_t y) { return colors[static_cast<std::size_t>(y * width + x)]; });
}

RGBAFrame solid(std::int64_t width, std::int64_t height, RGBColor color)
{
    return picture(width, height, [&](std::int64_t, std::int64_t) { return color; });
}

RGBAFrame textLike(std::int64_t width, std::int64_t height, std::int64_t scroll)
{
    return picture(width, height, [&](std::int64_t x, std::int64_t y) {
        const std::int64_t ink = inkAt(x, y + scroll);
        return RGBColor(toByte(250 - ink * 230 / 255), toByte(248 - ink * 220 / 255), toByte(240 - ink * 180 / 255));
    });
}

RGBAFrame gradient(std::int64_t width, std::int64_t height, std::int64_t phase)
{
    return picture(width, height, [&](std::int64_t x, std::int64_t y) {
        return RGBColor(wave(x + phase), wave(y * 2 + phase / 2), wave(x + y + 2 * phase));
    });
}

RGBAFrame noise(std::int64_t width, std::int64_t height, Random& random)
{
    Bytes pixels(static_cast<std::size_t>(width * height * 4), 0);
    std::generate(pixels.begin(), pixels.end(), [&] { return random.byte(); });
    return {width, height, std::move(pixels)};
}

RGBAFrame randomPicture(std::int64_t width, std::int64_t height, Random& random)
{
    const RGBColor base = randomColor(random);
    switch (random.below(7)) {
    case 0:
        return noise(width, height, random);
    case 1: {
        const std::vector<RGBColor> few = randomPalette(random.between(1, 20), random);
        return picture(width, height,
            [&](std::int64_t, std::int64_t) { return few[static_cast<std::size_t>(random.below(std::ssize(few)))]; });
    }
    case 2:
        return gradient(width, height, random.below(510));
    case 3:
        return solid(width, height, base);
    case 4:
        return picture(
            width, height, [&](std::int64_t, std::int64_t) { return gray(static_cast<int>(random.below(40))); });
    case 5:
        return picture(width, height, [&](std::int64_t, std::int64_t) {
            return RGBColor(255, toByte(random.between(230, 255)), toByte(random.between(200, 255)));
        });
    default:
        return picture(width, height, [&](std::int64_t, std::int64_t) {
            return RGBColor(toByte(base.r + random.between(-9, 9)), toByte(base.g + random.between(-9, 9)),
                toByte(base.b + random.between(-9, 9)));
        });
    }
}

RGBAFrame randomSuccessor(const RGBAFrame& previous, Random& random)
{
    const std::int64_t width = previous.width();
    const std::int64_t height = previous.height();
    if (previous.pixelCount() == 0)
        return random.oneIn(2) ? previous : deepCopy(previous);
    Bytes pixels(previous.pixels());
    const auto rowBytes = static_cast<std::size_t>(width * 4);
    switch (random.below(8)) {
    case 0:
        return previous;
    case 1:
        break; // an equal copy
    case 2: {  // a band of rows is replaced
        const RGBAFrame other = randomPicture(width, height, random);
        const std::int64_t first = random.below(height);
        const std::int64_t last = random.between(first, height - 1);
        const PixelView rows = other.pixels();
        std::copy(rows.begin() + first * width * 4, rows.begin() + (last + 1) * width * 4,
            pixels.begin() + first * width * 4);
        break;
    }
    case 3: // some pixels are replaced
        for (std::int64_t i = random.between(1, previous.pixelCount()); i > 0; --i)
            pixels[static_cast<std::size_t>(random.below(previous.pixelCount() * 4))] = random.byte();
        break;
    case 4: // scrolled up
        std::rotate(pixels.begin(), pixels.begin() + static_cast<std::ptrdiff_t>(rowBytes) * random.below(height),
            pixels.end());
        break;
    case 5: // a drift that the tolerance forgives, but that may cross a border of the 15-bit grid
        for (std::uint8_t& value : pixels)
            value = toByte(value + random.between(-1, 1));
        break;
    case 6: // only the alpha differs
        for (std::size_t offset = 3; offset < pixels.size(); offset += 4)
            pixels[offset] = random.byte();
        break;
    default:
        return randomPicture(width, height, random);
    }
    return {width, height, std::move(pixels)};
}

std::vector<RGBColor> randomPalette(std::int64_t count, Random& random)
{
    std::vector<RGBColor> palette;
    const std::int64_t kind = random.below(5);
    for (std::int64_t i = 0; i < count; ++i) {
        switch (kind) {
        case 0:
            palette.push_back(gray(static_cast<int>(random.below(20)))); // far from bright pictures
            break;
        case 1:
            palette.emplace_back(toByte(random.between(235, 255)), random.byte(), std::uint8_t{0});
            break;
        case 2:
            palette.push_back(gray(static_cast<int>(i * 255 / count)));
            break;
        case 3: // repetitions: the lowest index must win
            palette.push_back(random.oneIn(2) && !palette.empty() ? palette.front() : randomColor(random));
            break;
        default:
            palette.push_back(randomColor(random));
        }
    }
    return palette;
}

RGBAFrame deepCopy(const RGBAFrame& frame)
{
    return {frame.width(), frame.height(), Bytes(frame.pixels())};
}

std::vector<RGBAFrame> inBands(const std::vector<RGBAFrame>& frames)
{
    std::vector<RGBAFrame> result;
    std::vector<RGBAFrame::Band> bands; // of the frame before
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const RGBAFrame& frame = frames[i];
        const bool hasSameSize
            = i > 0 && frame.width() == frames[i - 1].width() && frame.height() == frames[i - 1].height();
        if (frame.pixelCount() == 0 || (hasSameSize && frame.sharesPixels(frames[i - 1]))) {
            result.push_back(frame.pixelCount() == 0 ? frame : result.back());
            continue;
        }
        bands.resize(static_cast<std::size_t>(frame.bandCount()));
        for (std::int64_t index = 0; index < frame.bandCount(); ++index) {
            RGBAFrame::Band& band = bands[static_cast<std::size_t>(index)];
            const PixelView rows = frame.band(index);
            if (!hasSameSize || !band || !(band->pixels() == rows))
                band = std::make_shared<const PixelBand>(Bytes(rows));
        }
        result.push_back(RGBAFrame::ofBands(frame.width(), frame.height(), bands));
    }
    return result;
}

} // namespace quillbox::support
