#include "Capture/X11/PointerImage.h"

#include "Encoding/Precondition.h"

#include <algorithm>
#include <cstring>

namespace quillbox {

namespace {

/// Puts one premultiplied pixel over the four bytes of another (Porter and Duff's "over").
void blend(std::uint32_t over, std::uint8_t* below)
{
    const std::uint32_t transparency = 255 - (over >> 24);
    for (int channel = 0; channel < 4; ++channel) {
        const std::uint32_t added = (over >> (8 * channel)) & 0xFF; // blue is the lowest byte and the first one
        const std::uint32_t sum = added + (below[channel] * transparency + 127) / 255;
        below[channel] = static_cast<std::uint8_t>(std::min(sum, std::uint32_t{255}));
    }
}

} // namespace

DrawnPointer::DrawnPointer(
    std::uint8_t* picture, std::int64_t stride, PixelRect extent, const PointerImage& image, PixelRect place)
    : m_picture(picture)
    , m_stride(stride)
    , m_covered(place.intersected(extent))
{
    precondition(std::ssize(image.pixels) == std::int64_t{image.width} * image.height, "one number a pointer's pixel");
    precondition(place.width == image.width && place.height == image.height, "a pointer is drawn at its own size");
    if (m_covered.isEmpty())
        return;
    const auto rowBytes = static_cast<std::size_t>(m_covered.width) * 4;
    m_below.resize(rowBytes * static_cast<std::size_t>(m_covered.height));
    std::uint8_t* saved = m_below.data();
    for (std::int32_t y = m_covered.y; y < m_covered.y + m_covered.height; ++y) {
        std::uint8_t* const row = rowAt(y);
        std::memcpy(saved, row, rowBytes);
        saved += rowBytes;
        const std::uint32_t* const over
            = image.pixels.data() + std::int64_t{y - place.y} * image.width + (m_covered.x - place.x);
        for (std::int32_t x = 0; x < m_covered.width; ++x)
            blend(over[x], row + std::int64_t{x} * 4);
    }
}

DrawnPointer::~DrawnPointer()
{
    const std::uint8_t* saved = m_below.data();
    const auto rowBytes = static_cast<std::size_t>(m_covered.width) * 4;
    for (std::int32_t y = m_covered.y; y < m_covered.y + m_covered.height; ++y) {
        std::memcpy(rowAt(y), saved, rowBytes);
        saved += rowBytes;
    }
}

std::uint8_t* DrawnPointer::rowAt(std::int32_t y) const
{
    return m_picture + y * m_stride + std::int64_t{m_covered.x} * 4;
}

} // namespace quillbox
