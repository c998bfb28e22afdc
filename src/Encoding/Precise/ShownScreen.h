#pragma once

#include "Encoding/Bytes.h"
#include "Encoding/FrameResampler.h"
#include "Encoding/Pixels/PixelTypes.h"
#include "Encoding/Precise/Codes/LZWSearch.h"
#include "Encoding/Precise/Colors/NearestColors.h"
#include "Encoding/Precise/DistinctFrames.h"
#include "Encoding/Precise/PictureArea.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quillbox {

/// What a recording showed at one moment and what the GIF shows in its place. Follows both through time and sums up by
/// how much they differ. A value; one thread at a time.
class ShownScreen {
public:
    explicit ShownScreen(PixelSize size);

    /// The recording goes on to its next picture. The GIF need not follow at once.
    /// @param seconds  Since the picture before, in units of the caller's choice.
    void record(const DistinctFrames::Picture& picture);
    /// Time passes in which neither changes. @param ticks  Not negative.
    void pass(std::int64_t ticks) { m_errorTicks += static_cast<double>(m_error) * static_cast<double>(ticks); }

    /// The smallest area that holds all pixels that changed in the recording since the GIF last followed.
    [[nodiscard]] const PictureArea& changedArea() const { return m_changedArea; }

    /// How the changed area comes out with one colour table.
    struct Mapping {
        Bytes indices;  ///< one a pixel, rows top-down
        Bytes freedoms; ///< likewise, an `LZWSearch::Freedom` each: kept where the recording has not changed since
        std::int64_t error = 0; ///< of the changed pixels: squared differences, summed up over channels
    };
    [[nodiscard]] Mapping mapping(NearestColors& table) const;

    /// The colours that have changed since the GIF last followed, in the changed area.
    [[nodiscard]] ColorCounts changedColors() const;

    /// The GIF follows: the changed area shows the mapping's colours.
    void show(const Mapping& mapping, std::span<const RGBColor> table);

    /// Squared differences between what is shown and what was recorded, over all pixels, channels and ticks passed.
    [[nodiscard]] double errorTicks() const { return m_errorTicks; }

private:
    PixelSize m_size;
    std::vector<std::uint32_t> m_recorded; ///< RGB, red in the low byte; the high byte is `changed` or 0
    std::vector<std::uint32_t> m_shown;    ///< the same without a high byte; no colour before the first picture
    PictureArea m_changedArea;
    std::int64_t m_error = 0; ///< squared differences at present
    double m_errorTicks = 0;
};

} // namespace quillbox
