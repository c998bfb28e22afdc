#pragma once

#include "Encoding/Bytes.h"
#include "Encoding/PixelTypes.h"
#include "Encoding/Precise/LZWSearch.h"

#include <cstdint>
#include <memory>
#include <span>

/// GIF code streams for pictures whose pixels need not be exact: a pixel may take its colour, another one of the table
/// that is near, or stay as the screen shows it, whichever makes the stream short enough for the error.
///
/// A rate-distortion choice made sequence by sequence: of those that the codes know, the one is taken whose bits and
/// priced errors are fewest for each pixel.
namespace quillbox::LossyLZW {

/// The part of the screen that a picture overwrites.
struct Picture {
    std::int64_t width = 0;                     ///< pixels a row, positive
    std::span<const RGBColor> wanted = {};      ///< the source's colours, rows top-down; whole rows
    std::span<const RGBColor> colorTable = {};  ///< 1…256 colours
    std::span<const std::uint8_t> indices = {}; ///< the nearest of them for each pixel
    std::span<const RGBColor> shown = {};       ///< what the screen shows before; empty: every pixel has to be written
    std::span<const std::uint16_t> durations = {}; ///< how long each pixel stays, in any unit; empty: 1 for all
};

/// What errors may be made, and their price. The error of a pixel is the squared distance from its wanted colour (see
/// `RGBColor::distanceSquared`) beyond that of its nearest colour.
struct Loss {
    std::int64_t price = 0;    ///< of one unit of error for one unit of duration, in 1/65536 bit; 0…2^24
    std::int64_t maxError = 0; ///< of a pixel, 0…195075; 0 permits nothing but what looks the same
};

struct Result {
    LZWSearch::Codes codes = {};
    Bytes indices = {};     ///< of every pixel that does not stay as it was
    Bytes freedoms = {};    ///< `LZWSearch::kept` where it does
    std::int64_t error = 0; ///< sum over the pixels, each times its duration
};

/// Encodes one picture after another; keeps its tables (some megabytes) in between. One thread at a time.
class Encoder {
public:
    Encoder();
    Encoder(Encoder&&) noexcept;
    Encoder& operator=(Encoder&&) noexcept;
    ~Encoder();

    /// @param effort  of the search for exact pixels' clear codes and, where that may be smaller, for all of their
    /// stream.
    /// @return the stream and what it shows. Depends on nothing but the arguments. A picture that would take no fewer
    ///         bytes with the errors is encoded without.
    /// @pre    sizes and ranges as stated.
    [[nodiscard]] Result encode(const Picture& picture, Loss loss, LZWSearch::Effort effort = {});

private:
    struct Tables;
    std::unique_ptr<Tables> m_tables;
};

} // namespace quillbox::LossyLZW
