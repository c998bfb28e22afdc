#pragma once

#include "Encoding/Bytes.h"
#include "Encoding/Precise/Codes/LossyPicture.h"
#include "Encoding/Precise/Codes/LZWSearch.h"

#include <cstdint>
#include <memory>

/// GIF code streams for pictures whose pixels need not be exact: a pixel may take its colour, another one of the table
/// that is near, or stay as the screen shows it, whichever makes the stream short enough for the error.
///
/// A rate-distortion choice made sequence by sequence: of those that the codes know, the one is taken whose bits and
/// priced errors are fewest for each pixel.
namespace quillbox::LossyLZW {

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
