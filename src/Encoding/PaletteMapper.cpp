#include "Encoding/PaletteMapper.h"

#include "Encoding/Dithering.h"
#include "Encoding/Multiversion.h"

#include <algorithm>
#include <utility>

namespace quillbox::PaletteMapper {
namespace {

/// Looks up `count` pixels. Keys are made a block at a time because that vectorises and the look-up does not.
QUILLBOX_MULTIVERSION void mapPixels(
    const std::uint8_t* pixels, std::size_t count, const std::uint8_t* table, std::uint8_t* indices)
{
    constexpr std::size_t block = 512;
    std::uint16_t keys[block];
    for (std::size_t done = 0; done < count; done += block) {
        const std::size_t here = std::min(block, count - done);
        Color15::keysOf(pixels + 4 * done, here, keys);
        for (std::size_t i = 0; i < here; ++i)
            indices[done + i] = table[keys[i]];
    }
}

IndexedFrame indexedFrame(
    const RGBAFrame& frame, const NearestColorLUT& lut, Bytes indices, std::int64_t delayCentiseconds)
{
    return {.width = frame.width(),
        .height = frame.height(),
        .palette = lut.palette(),
        .indices = std::move(indices),
        .delayCentiseconds = delayCentiseconds};
}

} // namespace

int nearestIndexLinear(RGBColor color, std::span<const RGBColor> palette)
{
    const auto nearest = std::ranges::min_element(
        palette, {}, [color](RGBColor entry) { return color.distanceSquared(entry); }); // the first of equal ones
    return palette.empty() ? 0 : static_cast<int>(nearest - palette.begin());
}

void mapInto(Bytes& indices, const RGBAFrame& frame, const NearestColorLUT& lut)
{
    indices.resize(static_cast<std::size_t>(frame.pixelCount()));
    std::uint8_t* next = indices.data();
    for (std::int64_t index = 0; index < frame.bandCount(); ++index) {
        const PixelView band = frame.band(index);
        const std::size_t count = band.size() / RGBAFrame::bytesPerPixel;
        mapPixels(band.data(), count, lut.table().data(), next);
        next += count;
    }
}

IndexedFrame map(const RGBAFrame& frame, const NearestColorLUT& lut, std::int64_t delayCentiseconds)
{
    Bytes indices;
    mapInto(indices, frame, lut);
    return indexedFrame(frame, lut, std::move(indices), delayCentiseconds);
}

IndexedFrame mapDithered(const RGBAFrame& frame, const NearestColorLUT& lut, std::int64_t delayCentiseconds)
{
    Ditherer ditherer;
    Bytes indices;
    ditherer.use(lut);
    ditherer.dither(frame, indices);
    return indexedFrame(frame, lut, std::move(indices), delayCentiseconds);
}

} // namespace quillbox::PaletteMapper
