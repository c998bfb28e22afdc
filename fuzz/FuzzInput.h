#pragma once

#include "Encoding/Pixels/PixelTypes.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace quillbox::fuzz {

/// A fuzzer's bytes, consumed from the front; zeros follow the last one.
class Input {
public:
    Input(const std::uint8_t* data, std::size_t size)
        : m_all(data, size)
        , m_rest(m_all)
    {
    }

    [[nodiscard]] bool isEmpty() const { return m_rest.empty(); }

    /// Whether this input is one of `count`, by a hash of all of its bytes. What takes long is chosen like this: where
    /// a single byte chooses it, a corpus collects inputs that have it, and their descendants have it, too.
    [[nodiscard]] bool isOneOf(std::uint32_t count) const
    {
        std::uint32_t hash = 2166136261; // FNV-1a
        for (const std::uint8_t byte : m_all)
            hash = (hash ^ byte) * 16777619;
        return (hash >> 8U) % count == 0;
    }

    /// How many colours the pattern of a picture has at most; 12 unless told. The table of the nearest colours takes
    /// time by their number.
    void setPatternColors(std::int64_t count) { m_patternColors = count; }

    std::uint8_t byte()
    {
        if (m_rest.empty())
            return 0;
        const std::uint8_t first = m_rest.front();
        m_rest = m_rest.subspan(1);
        return first;
    }
    std::int64_t number16()
    {
        const std::int64_t low = byte();
        return low + 256 * std::int64_t{byte()};
    }
    /// 0…`count` − 1, of one byte (`count` up to 256) or two.
    std::int64_t below(std::int64_t count) { return (count <= 256 ? std::int64_t{byte()} : number16()) % count; }

    /// All that is left, at most `largest` bytes of it.
    Bytes rest(std::size_t largest)
    {
        const auto taken = m_rest.first(std::min(m_rest.size(), largest));
        m_rest = m_rest.subspan(taken.size());
        return {taken.begin(), taken.end()};
    }

    RGBColor color()
    {
        const std::uint8_t r = byte();
        const std::uint8_t g = byte();
        return {r, g, byte()};
    }
    std::vector<RGBColor> palette(std::int64_t count)
    {
        std::vector<RGBColor> colors;
        for (std::int64_t i = 0; i < count; ++i)
            colors.push_back(color());
        return colors;
    }

    /// A picture with sides of 0…`largestSide`, filled by repeating a pattern of a few colours: many would take the
    /// stages more time than they are worth here.
    RGBAFrame picture(std::int64_t largestSide)
    {
        const std::int64_t width = below(largestSide + 1);
        return picture(width, below(largestSide + 1));
    }
    RGBAFrame picture(std::int64_t width, std::int64_t height)
    {
        Bytes pattern = rest(static_cast<std::size_t>(4 * (1 + below(m_patternColors))));
        pattern.resize(std::max<std::size_t>(pattern.size() + 3, 4) / 4 * 4, 0); // whole pixels
        Bytes pixels(static_cast<std::size_t>(width * height * 4), 0);
        for (std::size_t i = 0; i < pixels.size(); ++i)
            pixels[i] = pattern[i % pattern.size()];
        return {width, height, std::move(pixels)};
    }

    /// What may follow `previous`: itself, an equal copy, rows overwritten by a pattern, one pixel changed, rows moved,
    /// or any other picture.
    RGBAFrame successor(const RGBAFrame& previous, std::int64_t largestSide)
    {
        const std::uint8_t kind = byte();
        if (kind % 6 == 0 || (previous.pixelCount() == 0 && kind % 6 < 5))
            return previous;
        if (kind % 6 == 5)
            return picture(largestSide);
        Bytes pixels(previous.pixels());
        const std::int64_t rowBytes = previous.width() * 4;
        if (kind % 6 == 2) {
            const std::int64_t first = below(previous.height());
            const std::int64_t count = std::min(1 + below(previous.height()), previous.height() - first);
            const RGBAFrame band = picture(previous.width(), count);
            const PixelView rows = band.pixels();
            std::copy(rows.begin(), rows.end(), pixels.begin() + first * rowBytes);
        } else if (kind % 6 == 3) {
            pixels[static_cast<std::size_t>(number16() % (previous.pixelCount() * 4))] ^= byte();
        } else if (kind % 6 == 4) {
            std::rotate(pixels.begin(), pixels.begin() + below(previous.height()) * rowBytes, pixels.end());
        }
        return {previous.width(), previous.height(), std::move(pixels)};
    }

    /// A recording of up to `maxCount` frames, as long as there are bytes for them.
    std::vector<RGBAFrame> recording(std::int64_t maxCount, std::int64_t largestSide)
    {
        std::vector<RGBAFrame> frames{picture(largestSide)};
        while (!isEmpty() && std::ssize(frames) < maxCount)
            frames.push_back(successor(frames.back(), largestSide));
        return frames;
    }

private:
    std::span<const std::uint8_t> m_all;
    std::span<const std::uint8_t> m_rest;
    std::int64_t m_patternColors = 12;
};

} // namespace quillbox::fuzz
