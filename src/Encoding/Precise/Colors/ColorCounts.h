#pragma once

#include "Encoding/Pixels/PixelTypes.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quillbox {

/// All 24 bits of a colour in one number.
namespace Color24 {

/// red·65536 + green·256 + blue: 0…16777215.
[[nodiscard]] constexpr std::uint32_t key(RGBColor color)
{
    return std::uint32_t{color.r} << 16U | std::uint32_t{color.g} << 8U | color.b;
}

/// The colour of a key.
[[nodiscard]] constexpr RGBColor color(std::uint32_t key)
{
    return {static_cast<std::uint8_t>(key >> 16U), static_cast<std::uint8_t>(key >> 8U & 255U),
        static_cast<std::uint8_t>(key & 255U)};
}

} // namespace Color24

/// A colour and how much it matters, usually the number of pixels times how long they are shown.
struct WeightedColor {
    RGBColor color;
    std::int64_t weight = 0; ///< positive

    friend bool operator==(const WeightedColor&, const WeightedColor&) = default;
};

/// How much each exact colour of a recording weighs: what palettes are made of. Can be gathered in parts, on several
/// threads or while recording, and added up: neither the order nor the division matters. A value. Thread: one at a
/// time.
class ColorCounts {
public:
    /// @pre `weight` is positive; the sum of all weights fits 64 bits.
    void add(RGBColor color, std::int64_t weight);

    /// Adds `weight` for every pixel.
    /// @param pixels  RGBA; alpha is ignored. @pre a multiple of four bytes; `weight` as above.
    void add(std::span<const std::uint8_t> pixels, std::int64_t weight);

    /// Adds `weight` for every pixel whose colour is not the one that `before` has at the same place.
    /// @pre both have the same size; otherwise as above.
    void addChanged(std::span<const std::uint8_t> pixels, std::span<const std::uint8_t> before, std::int64_t weight);

    void add(const ColorCounts& other);

    /// The number of distinct colours.
    [[nodiscard]] std::int64_t size() const { return m_size; }
    [[nodiscard]] bool isEmpty() const { return m_size == 0; }

    /// The colours that occur, by ascending `Color24::key`. Time: O(size · log size).
    [[nodiscard]] std::vector<WeightedColor> entries() const;

private:
    struct Slot {
        std::int64_t weight = 0; ///< 0: free
        std::uint32_t key = 0;
    };

    [[nodiscard]] Slot& slotOf(std::uint32_t key);
    void addKey(std::uint32_t key, std::int64_t weight);
    void grow();

    std::vector<Slot> m_slots; ///< open addressing; a power of two, at most half of them taken
    std::int64_t m_size = 0;
};

} // namespace quillbox
