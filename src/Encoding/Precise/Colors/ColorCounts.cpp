#include "Encoding/Precise/Colors/ColorCounts.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace quillbox {
namespace {

static_assert(std::endian::native == std::endian::little, "red is the low byte of a loaded pixel");

constexpr std::size_t firstSlotCount = 1024;
constexpr std::uint32_t colorMask = 0xFFFFFF; // of a loaded pixel: all but alpha

std::uint32_t loadedPixel(const std::uint8_t* pixel)
{
    std::uint32_t value = 0;
    std::memcpy(&value, pixel, sizeof value);
    return value & colorMask;
}

std::uint32_t keyOf(std::uint32_t loaded)
{
    return (loaded & 255U) << 16U | (loaded & 0xFF00U) | loaded >> 16U;
}

/// Multiplicative hashing: the high bits of the product depend on all bits of the key.
/// D. Knuth, "The Art of Computer Programming", volume 3, 6.4.
std::size_t hashed(std::uint32_t key, std::size_t slotCount)
{
    return std::size_t{key * 2654435769U} >> (32 - std::countr_zero(slotCount));
}

} // namespace

ColorCounts::Slot& ColorCounts::slotOf(std::uint32_t key)
{
    std::size_t place = hashed(key, m_slots.size());
    while (m_slots[place].weight != 0 && m_slots[place].key != key)
        place = (place + 1) & (m_slots.size() - 1);
    return m_slots[place];
}

void ColorCounts::grow()
{
    const std::vector<Slot> before
        = std::exchange(m_slots, std::vector<Slot>(std::max(firstSlotCount, 2 * m_slots.size())));
    for (const Slot& slot : before) {
        if (slot.weight != 0)
            slotOf(slot.key) = slot;
    }
}

void ColorCounts::addKey(std::uint32_t key, std::int64_t weight)
{
    if (2 * static_cast<std::size_t>(m_size) >= m_slots.size())
        grow();
    Slot& slot = slotOf(key);
    m_size += slot.weight == 0 ? 1 : 0;
    slot.key = key;
    slot.weight = checkedAdd(slot.weight, weight);
}

void ColorCounts::add(RGBColor color, std::int64_t weight)
{
    precondition(weight > 0, "a weight is positive");
    addKey(Color24::key(color), weight);
}

void ColorCounts::add(std::span<const std::uint8_t> pixels, std::int64_t weight)
{
    precondition(pixels.size() % RGBAFrame::bytesPerPixel == 0, "whole pixels");
    precondition(weight > 0, "a weight is positive");
    std::size_t done = 0;
    while (done < pixels.size()) { // equal neighbours are counted at once
        const std::uint32_t color = loadedPixel(pixels.data() + done);
        std::int64_t run = 1;
        for (done += 4; done < pixels.size() && loadedPixel(pixels.data() + done) == color; done += 4)
            ++run;
        addKey(keyOf(color), checkedMul(run, weight));
    }
}

void ColorCounts::addChanged(
    std::span<const std::uint8_t> pixels, std::span<const std::uint8_t> before, std::int64_t weight)
{
    precondition(pixels.size() % RGBAFrame::bytesPerPixel == 0, "whole pixels");
    precondition(pixels.size() == before.size(), "both pictures have as many pixels");
    precondition(weight > 0, "a weight is positive");
    for (std::size_t offset = 0; offset < pixels.size(); offset += 4) {
        const std::uint32_t color = loadedPixel(pixels.data() + offset);
        if (color != loadedPixel(before.data() + offset))
            addKey(keyOf(color), weight);
    }
}

void ColorCounts::add(const ColorCounts& other)
{
    for (const Slot& slot : other.m_slots) {
        if (slot.weight != 0)
            addKey(slot.key, slot.weight);
    }
}

std::vector<WeightedColor> ColorCounts::entries() const
{
    std::vector<WeightedColor> result;
    result.reserve(static_cast<std::size_t>(m_size));
    for (const Slot& slot : m_slots) {
        if (slot.weight != 0)
            result.push_back({Color24::color(slot.key), slot.weight});
    }
    std::ranges::sort(result, {}, [](const WeightedColor& entry) { return Color24::key(entry.color); });
    return result;
}

} // namespace quillbox
