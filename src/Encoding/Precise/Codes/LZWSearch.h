#pragma once

#include "Encoding/Bytes.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>

/// The smallest lossless GIF code stream that a bounded search finds for one picture.
///
/// Where the screen shows a pixel's colour already, the pixel may be written in its colour or as transparent: the
/// search makes use of that choice, and of where it places clear codes.
/// @see GIF89a, appendix F; T. Welch, "A Technique for High-Performance Data Compression" (1984).
namespace quillbox::LZWSearch {

/// How a pixel may be written.
enum Freedom : std::uint8_t {
    changed,   ///< in its colour
    unchanged, ///< in its colour or as transparent: the screen shows that colour already
    kept,      ///< as transparent: what the screen shows is right, but no colour of the table; the index means nothing
};

/// The part of the screen that a picture overwrites.
struct Picture {
    std::int64_t width = 0;                      ///< pixels a row, positive
    std::span<const std::uint8_t> indices = {};  ///< one colour table index a pixel, rows top-down; whole rows
    std::span<const std::uint8_t> freedoms = {}; ///< one `Freedom` a pixel. Empty means that every pixel is changed.
};

/// Which pixels were transparent, beside those that are kept.
enum class Candidate : std::uint8_t {
    opaque,      ///< none
    transparent, ///< every unchanged one
    free,        ///< an unchanged one wherever that gave a longer sequence
    consistent,  ///< likewise, but none in a run of one index that holds a changed pixel
};

/// What an image of the file holds behind its descriptor and colour table, and what its control extension must say.
struct Codes {
    Bytes data = {};     ///< codes packed lowest bit first; without the sub-block framing
    int minCodeSize = 2; ///< bits of a literal, 2…8: may be less than the colour table's
    std::optional<std::uint8_t> transparentIndex = {}; ///< where some pixel may be transparent; below 2^minCodeSize
    Candidate winner = Candidate::opaque;
};

/// The most that a search may do, so that equal pictures give equal bytes on every machine.
struct Effort {
    /// Look-ups, in multiples of what one plain parse of the picture takes. Choosing which pixels are transparent takes
    /// about 5, a good placement of clear codes 5 to 30, looking ahead 5 to 10. At least 1; what is begun is finished,
    /// so that it may become a few more. With fewer than 15, what gains least is left out.
    std::int64_t passes = 30;
};

/// Searches one picture after another; keeps its tables (some megabytes) in between. One thread at a time.
class Search {
public:
    Search();
    Search(Search&&) noexcept;
    Search& operator=(Search&&) noexcept;
    ~Search();

    /// @return the smallest stream found. Depends on nothing but the arguments. The transparent index is one that no
    ///         changed pixel has, so that a colour table may hold 256 colours and a picture be transparent still.
    /// @pre    `indices` holds at least one pixel and whole rows; `freedoms` is empty or as long. Where a pixel is
    /// kept,
    ///         there is an index that no changed pixel has.
    [[nodiscard]] Codes best(const Picture& picture, Effort effort = {});

    /// About as many bits as codes take that are sought with the least effort, clear and end code included.
    /// @pre as `best`
    [[nodiscard]] std::int64_t roughBits(const Picture& picture);

private:
    struct Tables;
    std::unique_ptr<Tables> m_tables;
};

} // namespace quillbox::LZWSearch
