#pragma once

#include "Encoding/Bytes.h"
#include "Encoding/Pixels/PixelSize.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quillbox {

/// Takes an animated PNG apart, and puts its pictures together. Stateless but for `Canvas`; thread: any.
/// @see PNG (third edition), section 11.3.6, and Mozilla's description of APNG 1.0.
namespace AnimatedPNG {

/// What becomes of a part's place when its time is over.
enum class Disposal : std::uint8_t {
    keep,
    clear,   ///< transparent black
    restore, ///< as before the part was drawn
};

/// One picture of the animation, which covers a part of the canvas.
struct Part {
    Bytes png; ///< a file of its own, with the animation's palette, profile and the like
    PixelSize size;
    std::int64_t left = 0; ///< of the canvas, pixels; the part lies on it whole
    std::int64_t top = 0;
    std::int64_t milliseconds = 0;
    Disposal disposal = Disposal::keep;
    bool isMixed = false; ///< with what lies below, by its alpha; or else takes its place
};

struct Animation {
    PixelSize size;
    std::vector<Part> parts;         ///< in order, as far as they are whole and well formed
    std::int64_t announcedCount = 0; ///< parts that the file says it has
};

/// @param file  Begins with a PNG's signature; may be cut off anywhere.
[[nodiscard]] Animation taken(std::span<const std::uint8_t> file);

/// The picture that is shown, RGBA, not premultiplied.
class Canvas {
public:
    /// Transparent black. @pre both sides are in 1…65535.
    explicit Canvas(PixelSize size);

    /// Draws a part; what the one before left behind is disposed of first. @return the pixels to show.
    /// @param pixels  RGBA of the part's size. @pre they are, and the part lies on the canvas.
    const Bytes& draw(const Part& part, std::span<const std::uint8_t> pixels);

private:
    void dispose();

    PixelSize m_size;
    Bytes m_pixels;
    Bytes m_before; ///< the latest part was drawn, if that comes back
    Disposal m_disposal = Disposal::keep;
    PixelSize m_partSize;
    std::int64_t m_left = 0;
    std::int64_t m_top = 0;
};

} // namespace AnimatedPNG
} // namespace quillbox
