#include "Encoding/Precise/NearestColors.h"

#include <bit>
#include <cstring>
#include <limits>

namespace quillbox {
namespace {

static_assert(std::endian::native == std::endian::little, "red is the low byte of a loaded pixel");

constexpr unsigned cacheBits = 14;
constexpr std::uint32_t colorMask = 0xFFFFFF; // of a loaded pixel: all but alpha

std::size_t cachePlace(std::uint32_t loaded)
{
    return loaded * 2654435769U >> (32 - cacheBits);
}

} // namespace

NearestColors::NearestColors(std::vector<RGBColor> palette)
    : m_palette(std::move(palette))
    , m_cache(std::size_t{1} << cacheBits, 0)
{
    precondition(!m_palette.empty() && m_palette.size() <= 256, "a palette has 1 to 256 colours");
    m_cache[cachePlace(0)] = std::uint32_t{search(0)}
        << 24U; // elsewhere, zero means a colour that is never sought there
}

std::uint8_t NearestColors::search(std::uint32_t loaded) const
{
    const RGBColor color(static_cast<std::uint8_t>(loaded & 255U), static_cast<std::uint8_t>(loaded >> 8U & 255U),
        static_cast<std::uint8_t>(loaded >> 16U & 255U));
    std::int64_t best = std::numeric_limits<std::int64_t>::max();
    std::size_t nearest = 0;
    for (std::size_t i = 0; i < m_palette.size(); ++i) {
        if (const std::int64_t distance = color.distanceSquared(m_palette[i]); distance < best) {
            best = distance;
            nearest = i;
        }
    }
    return static_cast<std::uint8_t>(nearest);
}

std::uint8_t NearestColors::remembered(std::uint32_t loaded)
{
    std::uint32_t& entry = m_cache[cachePlace(loaded)];
    if ((entry & colorMask) != loaded)
        entry = loaded | std::uint32_t{search(loaded)} << 24U;
    return static_cast<std::uint8_t>(entry >> 24U);
}

std::uint8_t NearestColors::index(RGBColor color)
{
    return remembered(std::uint32_t{color.r} | std::uint32_t{color.g} << 8U | std::uint32_t{color.b} << 16U);
}

void NearestColors::map(std::span<const std::uint8_t> pixels, std::span<std::uint8_t> indices)
{
    precondition(pixels.size() % 4 == 0 && pixels.size() / 4 == indices.size(), "four bytes per pixel");
    std::uint32_t last = 0;
    std::uint8_t index = remembered(0);
    for (std::size_t i = 0; i < indices.size(); ++i) {
        std::uint32_t pixel = 0;
        std::memcpy(&pixel, pixels.data() + 4 * i, sizeof pixel);
        pixel &= colorMask;
        if (pixel != last) {
            index = remembered(pixel);
            last = pixel;
        }
        indices[i] = index;
    }
}

} // namespace quillbox
