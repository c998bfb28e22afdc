#pragma once

#include "Encoding/GIFEncoder.h"
#include "Encoding/Pixels/PixelTypes.h"
#include "Encoding/Precise/Codes/LZWSearch.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quillbox {

/// Writes a GIF89a whose pictures overwrite a part of the screen each and leave the rest in place. Stateless; thread:
/// any.
/// @see GIF89a, CompuServe 1990; the looping extension is Netscape's "NETSCAPE2.0".
namespace DeltaGIF {

/// What the whole file has in common.
struct Screen {
    std::int64_t width = 0;                ///< pixels
    std::int64_t height = 0;               ///< pixels
    std::vector<RGBColor> colorTable = {}; ///< global, 1…256 colours; empty if every picture has a table of its own
    std::int64_t loopCount = 0;            ///< repeats; 0 means for ever
};

/// One image of the file.
struct Picture {
    std::int64_t left = 0;                      ///< pixels from the screen's left edge
    std::int64_t top = 0;                       ///< pixels from the screen's top edge
    std::int64_t width = 0;                     ///< pixels, positive
    std::int64_t height = 0;                    ///< pixels, positive
    std::vector<RGBColor> localColorTable = {}; ///< at most 256 colours; empty for the screen's
    LZWSearch::Codes codes = {};
    std::int64_t delayCentiseconds = 0; ///< display time, at least 1; above 65535 the picture is shown repeatedly
};

/// The screen's header: all that comes before the first picture.
/// @throws GIFEncodingError  a side is outside 0…65535.
[[nodiscard]] Bytes header(const Screen& screen);

/// One picture's part of the file: control extension, image descriptor, colour table and codes. A delay that does not
/// fit the format's 16 bits is split: transparent images of one pixel each carry the rest, so that what is shown and
/// the sum of the delays are as asked for.
/// @throws GIFEncodingError  a side is outside 1…65535.
/// @pre the picture lies on a screen of at most 65535 × 65535; its indices are below the size of the padded table.
[[nodiscard]] Bytes part(const Picture& picture);

/// The size of the file that `fileOf` makes, in bytes.
[[nodiscard]] std::int64_t fileSize(const Screen& screen, std::span<const Bytes> parts);

/// The file. The parts may have been made in any order and on any thread.
/// @throws GIFEncodingError  as `header`.   @pre the first picture covers the screen and has no transparent index.
[[nodiscard]] Bytes fileOf(const Screen& screen, std::span<const Bytes> parts);

} // namespace DeltaGIF
} // namespace quillbox
