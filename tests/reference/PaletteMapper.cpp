#include "reference/PaletteMapper.h"

#include "reference/PaletteQuantizer.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace quillbox::reference {

namespace {

std::size_t at(std::int64_t index)
{
    return static_cast<std::size_t>(index);
}

/// One channel's working values, a whole frame of them.
using Plane = std::vector<std::int64_t>;

Plane planeOf(const RGBAFrame& frame, std::int64_t channel)
{
    Plane plane;
    for (std::int64_t i = 0; i < frame.pixelCount(); ++i)
        plane.push_back(frame.pixels()[at(4 * i + channel)]);
    return plane;
}

std::uint8_t clamped(std::int64_t value)
{
    return static_cast<std::uint8_t>(std::clamp<std::int64_t>(value, 0, 255));
}

void spread(Plane& plane, std::int64_t error, std::int64_t x, std::int64_t y, std::int64_t width, std::int64_t height)
{
    const std::int64_t i = y * width + x;
    if (x + 1 < width)
        plane[at(i + 1)] += error * 7 / 16;
    if (y == height - 1)
        return;
    if (x > 0)
        plane[at(i + width - 1)] += error * 3 / 16;
    plane[at(i + width)] += error * 5 / 16;
    if (x + 1 < width)
        plane[at(i + width + 1)] += error * 1 / 16;
}

/// `gridIndex` for one palette; each of the grid's colours is searched for once at most.
class Searched {
public:
    explicit Searched(std::span<const RGBColor> palette)
        : m_palette(palette)
        , m_known(32768, -1)
    {
    }

    int operator()(RGBColor color)
    {
        int& known = m_known[at(keyOf(color))];
        if (known < 0)
            known = gridIndex(color, m_palette);
        return known;
    }

private:
    std::span<const RGBColor> m_palette;
    std::vector<int> m_known;
};

IndexedFrame indexed(const RGBAFrame& frame, std::span<const RGBColor> palette, std::int64_t delayCentiseconds)
{
    return {frame.width(), frame.height(), {palette.begin(), palette.end()}, Bytes(at(frame.pixelCount()), 0),
        delayCentiseconds};
}

} // namespace

int nearestIndex(RGBColor color, std::span<const RGBColor> palette)
{
    int best = 0;
    std::int64_t bestDistance = std::numeric_limits<std::int64_t>::max();
    for (std::size_t i = 0; i < palette.size(); ++i) {
        const std::int64_t dr = std::int64_t{color.r} - palette[i].r;
        const std::int64_t dg = std::int64_t{color.g} - palette[i].g;
        const std::int64_t db = std::int64_t{color.b} - palette[i].b;
        const std::int64_t distance = dr * dr + dg * dg + db * db;
        if (distance < bestDistance) {
            best = static_cast<int>(i);
            bestDistance = distance;
        }
    }
    return best;
}

int gridIndex(RGBColor color, std::span<const RGBColor> palette)
{
    return nearestIndex(gridColor(keyOf(color)), palette);
}

IndexedFrame map(const RGBAFrame& frame, std::span<const RGBColor> palette, std::int64_t delayCentiseconds)
{
    IndexedFrame result = indexed(frame, palette, delayCentiseconds);
    const PixelView pixels = frame.pixels();
    Searched search(palette);
    for (std::int64_t i = 0; i < frame.pixelCount(); ++i) {
        const RGBColor color{pixels[at(4 * i)], pixels[at(4 * i + 1)], pixels[at(4 * i + 2)]};
        result.indices[at(i)] = static_cast<std::uint8_t>(search(color));
    }
    return result;
}

IndexedFrame mapDithered(const RGBAFrame& frame, std::span<const RGBColor> palette, std::int64_t delayCentiseconds)
{
    IndexedFrame result = indexed(frame, palette, delayCentiseconds);
    const std::int64_t width = frame.width();
    const std::int64_t height = frame.height();
    precondition(frame.pixelCount() == 0 || !palette.empty(), "a picture is dithered to at least one colour");
    Plane red = planeOf(frame, 0);
    Plane green = planeOf(frame, 1);
    Plane blue = planeOf(frame, 2);
    Searched search(palette);
    for (std::int64_t y = 0; y < height; ++y) {
        for (std::int64_t x = 0; x < width; ++x) {
            const std::int64_t i = y * width + x;
            const RGBColor wanted{clamped(red[at(i)]), clamped(green[at(i)]), clamped(blue[at(i)])};
            const int p = search(wanted);
            result.indices[at(i)] = static_cast<std::uint8_t>(p);
            spread(red, red[at(i)] - palette[at(p)].r, x, y, width, height);
            spread(green, green[at(i)] - palette[at(p)].g, x, y, width, height);
            spread(blue, blue[at(i)] - palette[at(p)].b, x, y, width, height);
        }
    }
    return result;
}

} // namespace quillbox::reference
