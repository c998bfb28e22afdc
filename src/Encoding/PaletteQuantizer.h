#pragma once

#include "Encoding/Parallel.h"
#include "Encoding/Pixels/PixelTypes.h"

#include <bit>
#include <cstdint>
#include <cstring>
#include <mutex>
#include <span>
#include <vector>

namespace quillbox {

/// Colours reduced to 5 bits a channel, as used by the histogram and by the nearest-colour table.
namespace Color15 {

inline constexpr int keyCount = 32768;

/// red·1024 + green·32 + blue of the channels' top five bits: 0…32767.
[[nodiscard]] constexpr std::uint16_t key(std::uint8_t r, std::uint8_t g, std::uint8_t b)
{
    return static_cast<std::uint16_t>((r >> 3U) << 10U | (g >> 3U) << 5U | b >> 3U);
}

/// The colour of a key, each 5-bit level widened to 8 bits by repeating its top bits, so 0 and 31 give 0 and 255.
[[nodiscard]] constexpr RGBColor color(std::uint16_t key)
{
    constexpr auto widen = [](unsigned level) {
        return static_cast<std::uint8_t>(level << 3U | level >> 2U);
    };
    return {widen(key >> 10U & 31U), widen(key >> 5U & 31U), widen(key & 31U)};
}

/// The keys of `count` RGBA pixels. Inline and always inlined, so that it is vectorised for its caller's processor.
[[gnu::always_inline]] inline void keysOf(const std::uint8_t* pixels, std::size_t count, std::uint16_t* keys)
{
    static_assert(std::endian::native == std::endian::little, "red is the low byte of a loaded pixel");
    for (std::size_t i = 0; i < count; ++i) {
        std::uint32_t pixel = 0; // loaded whole: four single bytes would not vectorise as well
        std::memcpy(&pixel, pixels + 4 * i, sizeof pixel);
        keys[i] = static_cast<std::uint16_t>(
            (pixel >> 3U & 31U) << 10U | (pixel >> 11U & 31U) << 5U | (pixel >> 19U & 31U));
    }
}

} // namespace Color15

/// How often each 15-bit colour occurs. Enumerates by ascending `Color15::key`, so equal pictures give equal palettes
/// everywhere. A value; 256 KiB.
class ColorHistogram {
public:
    struct Entry {
        RGBColor color;         ///< a colour of the 15-bit grid
        std::int64_t count = 0; ///< occurrences, positive

        friend bool operator==(const Entry&, const Entry&) = default;
    };

    ColorHistogram()
        : m_counts(Color15::keyCount, 0)
    {
    }

    /// Adds `count` occurrences. @pre `key` below 32768, `count` not negative, the sum fits 64 bits.
    void add(std::uint16_t key, std::int64_t count);
    void add(const ColorHistogram& other);

    [[nodiscard]] std::int64_t count(std::uint16_t key) const { return m_counts[key]; }
    /// Number of distinct colours, 0…32768.
    [[nodiscard]] std::int64_t size() const { return m_size; }
    /// The colours that occur, by ascending key.
    [[nodiscard]] std::vector<Entry> entries() const;

    friend bool operator==(const ColorHistogram&, const ColorHistogram&) = default;

private:
    std::vector<std::int64_t> m_counts;
    std::int64_t m_size = 0;
};

/// Chooses one palette for a clip by median cut. Stateless; thread: any.
/// @see P. Heckbert, "Color Image Quantization for Frame Buffer Display" (1982).
namespace PaletteQuantizer {

/// The nearest colour of the 15-bit grid from below: top five bits kept, low three filled with the top three.
[[nodiscard]] constexpr RGBColor reduceTo15Bit(RGBColor color)
{
    return Color15::color(Color15::key(color.r, color.g, color.b));
}

/// Counts pixels, reduced to 15 bits, as they come along.
class Counter {
public:
    /// @param workers  Threads that add at the same time.
    explicit Counter(int workers);
    ~Counter();
    Counter(const Counter&) = delete;
    Counter& operator=(const Counter&) = delete;

    /// Counts all of a frame. @param worker  In 0…workers − 1; one thread each.
    void add(const RGBAFrame& frame, int worker);
    /// Counts one of its bands `times` over. @pre it has pixels.
    void add(const RGBAFrame& frame, std::int64_t index, std::int64_t times, int worker);

    /// What was counted; nothing may be added afterwards.
    [[nodiscard]] ColorHistogram total();

private:
    struct Worker;

    std::vector<Worker> m_workers;
    std::mutex m_mutex;
    ColorHistogram m_total; ///< guarded by m_mutex
};

/// Counts every pixel of every frame, reduced to 15 bits.
[[nodiscard]] ColorHistogram histogram(std::span<const RGBAFrame> frames, Parallelism parallelism = {});

/// At most `maxColors` colours (clamped to 1…256), never none: the colours themselves, most frequent first, when
/// they are few enough; otherwise the floor averages of the boxes of a median cut, most populated first. Equal
/// counts keep the histogram's order. An empty histogram gives black.
[[nodiscard]] std::vector<RGBColor> quantize(const ColorHistogram& histogram, std::int64_t maxColors);

} // namespace PaletteQuantizer
} // namespace quillbox
