#pragma once

#include "Encoding/Precise/Codes/PictureParser.h"

#include <cstdint>
#include <vector>

/// Where a code stream begins anew.
namespace quillbox::ClearCodes {

/// Positions in a picture at which clear codes stand, ascending, without the one at the start; and what the stream
/// takes with them.
struct Placement {
    std::vector<std::size_t> positions = {};
    std::int64_t bits = 0;
};

/// A placement with its codes, and positions that divide the picture into parts of at most `codesAPart` codes, the
/// clear codes' among them.
struct Division {
    static constexpr std::int64_t codesAPart = 60;

    Placement placement = {};
    std::vector<std::size_t> marks = {};         ///< ascending; the first is 0, the last is the picture's end
    std::vector<PictureParser::Code> codes = {}; ///< all but the first clear code and the end code

    /// Every so many of the marks, and those of clear codes. @pre `every` is positive.
    [[nodiscard]] std::vector<std::size_t> everyNthMark(std::size_t every) const;
};

/// Clears whenever the table is full. @pre the parser has this picture, which has pixels.
[[nodiscard]] Division whenFull(PictureParser& parser, const FreePicture& picture);

/// How much is tried. A way to a mark is followed no further once it is `margin` bits longer than another one: younger
/// tables catch up by less. After `steps` of the parser, the margin is none.
struct Bounds {
    std::int64_t margin = 0;
    std::int64_t steps = 0;
};

/// The placement at some of `marks` that takes the fewest bits: the shortest path over them, where an edge is a part of
/// the picture coded from a clear code on.
[[nodiscard]] Placement amongMarks(
    PictureParser& parser, const FreePicture& picture, const std::vector<std::size_t>& marks, Bounds bounds);

} // namespace quillbox::ClearCodes
