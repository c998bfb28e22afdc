#pragma once

#include "Encoding/NearestColorLUT.h"
#include "Encoding/Pixels/PixelTypes.h"

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace quillbox {

/// Dithers the frames of a clip one after another through one table, as `PaletteMapper::mapDithered` does each on its
/// own, and reuses what a frame has in common with the one before: a band of rows whose pixels and whose incoming
/// errors are the same as last time has the same indices and the same outgoing errors.
///
/// One thread at a time. Holds one frame and its indices between calls.
class Ditherer {
public:
    /// Turns to a table and forgets the frames before.
    void use(const NearestColorLUT& lut);

    /// Sets `indices` to the frame's palette indices, rows top-down.
    /// @pre a table is in use; its palette is not empty unless the frame is.
    void dither(const RGBAFrame& frame, Bytes& indices);

private:
    /// Errors that a row receives from the one above, for each channel one value a pixel, in 1/1 of a channel level.
    using ErrorRow = std::array<std::vector<std::int32_t>, 3>;

    void ditherBands(const RGBAFrame& frame, Bytes& indices);
    /// Turns `m_errors`, which equal `incoming`, into the errors that leave the band's last row.
    void ditherBand(
        const std::uint8_t* pixels, std::uint8_t* indices, std::int64_t width, int rows, const ErrorRow& incoming);

    /// By 15-bit key: the nearest colour, red in the low byte, then green, blue, and its palette index.
    std::vector<std::uint32_t> m_nearest;
    bool m_hasColors = false;

    std::optional<RGBAFrame> m_previous;
    Bytes m_previousIndices;
    std::vector<ErrorRow> m_incoming; ///< by band, of the previous frame
    ErrorRow m_errors;                ///< into the band at hand
};

} // namespace quillbox
