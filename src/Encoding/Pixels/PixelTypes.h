#pragma once

#include "Encoding/Bytes.h"
#include "Encoding/Pixels/PixelBand.h"
#include "Encoding/Pixels/PixelView.h"
#include "Encoding/Precondition.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace quillbox {

/// One opaque colour, 8 bits a channel. The key of colour histograms and the element of palettes.
struct RGBColor {
    std::uint8_t r = 0;
    std::uint8_t g = 0;
    std::uint8_t b = 0;

    constexpr RGBColor() = default;
    constexpr RGBColor(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
        : r(red)
        , g(green)
        , b(blue)
    {
    }

    /// Squared Euclidean distance in RGB, 0…195075; all channels weigh the same.
    [[nodiscard]] constexpr std::int64_t distanceSquared(RGBColor to) const
    {
        const std::int64_t dr = std::int64_t{r} - to.r;
        const std::int64_t dg = std::int64_t{g} - to.g;
        const std::int64_t db = std::int64_t{b} - to.b;
        return dr * dr + dg * dg + db * db;
    }

    friend constexpr bool operator==(const RGBColor&, const RGBColor&) = default;
};

/// One picture: `width` × `height` pixels of four bytes (red, green, blue, alpha), rows top-down, no row padding.
/// A value: compared by content. The pixels are immutable and shared by all copies, so a copy costs a reference count.
/// Alpha is carried but ignored by everything in Encoding. Thread: any.
///
/// The rows are grouped in bands. A picture that was made of bands shares each of them with every other picture that
/// was made of it, so that a picture which differs a little from the one before costs little.
class RGBAFrame {
public:
    static constexpr std::int64_t bytesPerPixel = 4;
    static constexpr std::int64_t rowsPerBand = 32; ///< fewer in the last one
    using Band = std::shared_ptr<const PixelBand>;

    /// @param width, height  Pixels; zero is allowed.
    /// @pre `pixels.size() == width * height * 4`, checked without overflow; a violation ends the process.
    RGBAFrame(std::int64_t width, std::int64_t height, Bytes pixels);
    /// The same for pixels that somebody else's `shared_ptr` looks after. @pre `pixels` is not null.
    [[nodiscard]] static RGBAFrame sharing(
        std::int64_t width, std::int64_t height, std::shared_ptr<const Bytes> pixels);
    /// A frame made of bands, from the top. @pre width and height are positive; each band has its rows' bytes.
    [[nodiscard]] static RGBAFrame ofBands(std::int64_t width, std::int64_t height, std::vector<Band> bands);

    [[nodiscard]] std::int64_t width() const { return m_width; }
    [[nodiscard]] std::int64_t height() const { return m_height; }
    [[nodiscard]] std::int64_t pixelCount() const { return m_width * m_height; }
    /// All pixels in one piece. Those of a frame that is made of bands are put together for it: prefer band().
    [[nodiscard]] PixelView pixels() const;

    /// The pixels if they are in one piece; null if the frame is made of bands.
    [[nodiscard]] const std::shared_ptr<const Bytes>& whole() const { return m_storage->whole; }

    [[nodiscard]] std::int64_t bandCount() const { return (m_height + rowsPerBand - 1) / rowsPerBand; }
    [[nodiscard]] std::int64_t rowsOfBand(std::int64_t index) const
    {
        return std::min(rowsPerBand, m_height - index * rowsPerBand);
    }
    /// The rows from `index * rowsPerBand` on. @pre index is in 0…bandCount() − 1.
    /// Throws as PixelBand::pixels().
    [[nodiscard]] PixelView band(std::int64_t index) const;
    /// The band itself; none if the frame is in one piece.
    [[nodiscard]] Band ownBand(std::int64_t index) const;
    /// The same picture, made of bands: its own if it is made of some; else those of `before` where they are equal,
    /// and copies. One without pixels stays as it is. Throws as PixelBand::pixels().
    [[nodiscard]] RGBAFrame inBands(const std::optional<RGBAFrame>& before) const;
    /// Whether it is made of bands that all have a backing store.
    [[nodiscard]] bool isBacked() const;
    /// Evicts the pixels of all bands. @pre isBacked().
    void evict() const;
    /// The pixels of all bands, in memory for as long as the result is held; none of a frame that is in one piece.
    /// Throws as PixelBand::pixels().
    [[nodiscard]] std::vector<PixelView> pinned() const;
    /// What tells a band from all others of its size that exist at the same time.
    [[nodiscard]] const void* bandIdentity(std::int64_t index) const;
    /// Whether that band of both frames is the same storage. @pre both have the same size.
    [[nodiscard]] bool sharesBand(const RGBAFrame& other, std::int64_t index) const
    {
        return bandIdentity(index) == other.bandIdentity(index);
    }

    /// Whether both frames hold the same storage (and so are equal without a look at any pixel).
    [[nodiscard]] bool sharesPixels(const RGBAFrame& other) const { return m_storage == other.m_storage; }

    /// Calls `visit(RGBColor)` once a pixel, in storage order.
    template <typename Visitor> void forEachColor(Visitor&& visit) const
    {
        for (std::int64_t index = 0; index < bandCount(); ++index) {
            const PixelView bytes = band(index);
            for (std::size_t offset = 0; offset + 3 < bytes.size(); offset += bytesPerPixel)
                visit(RGBColor(bytes[offset], bytes[offset + 1], bytes[offset + 2]));
        }
    }

    friend bool operator==(const RGBAFrame& a, const RGBAFrame& b);

private:
    /// The pixels in one piece, or the bands.
    struct Storage {
        std::shared_ptr<const Bytes> whole;
        std::vector<Band> bands;
    };

    RGBAFrame(std::shared_ptr<const Storage> storage, std::int64_t width, std::int64_t height);
    [[nodiscard]] std::size_t bandBytes() const
    {
        return static_cast<std::size_t>(m_width * rowsPerBand * bytesPerPixel);
    }

    std::int64_t m_width;
    std::int64_t m_height;
    std::shared_ptr<const Storage> m_storage;
};

/// A picture reduced to a palette, ready for `GIFEncoder`. Compared by content, delay included.
struct IndexedFrame {
    std::int64_t width = 0;             ///< pixels
    std::int64_t height = 0;            ///< pixels
    std::vector<RGBColor> palette;      ///< this frame's own colour table, at most 256 entries
    Bytes indices;                      ///< one palette index a pixel, `width * height` of them, rows top-down
    std::int64_t delayCentiseconds = 0; ///< display time in 1/100 s; the writer clamps it to 1…65535

    friend bool operator==(const IndexedFrame&, const IndexedFrame&) = default;
};

} // namespace quillbox

template <> struct std::hash<quillbox::RGBColor> {
    std::size_t operator()(quillbox::RGBColor color) const noexcept
    {
        return std::hash<std::uint32_t>{}(
            std::uint32_t{color.r} | std::uint32_t{color.g} << 8U | std::uint32_t{color.b} << 16U);
    }
};
