#pragma once

#include "Encoding/Pixels/PixelComparison.h"
#include "Encoding/Pixels/PixelTypes.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace quillbox {

class FrameComparisons;

/// Merges runs of near-identical frames into one that is shown longer. Thread: any; an object, one at a time.
namespace FrameDeduplicator {

struct Timed {
    RGBAFrame frame;
    std::int64_t delayCentiseconds = 0; ///< display time in 1/100 s

    friend bool operator==(const Timed&, const Timed&) = default;
};

/// Takes frames in order and drops each one that differs from the last one kept in at most a threshold of its pixels,
/// lengthening that one's delay instead, to at most 65535. Kept frames share their pixels with the input.
class Deduplicator {
public:
    /// @param perFrameDelayCentiseconds  Display time of each frame, 1/100 s.
    /// @param changeThreshold            Share of the pixels, 0…1.
    Deduplicator(std::int64_t perFrameDelayCentiseconds, double changeThreshold);

    /// @return whether the frame was kept. @pre `comparisons` has turned to `frame`.
    bool append(const RGBAFrame& frame, FrameComparisons& comparisons);

    /// Keeps `substitute` in place of the last frame kept, with which later frames are compared nevertheless.
    /// @pre a frame was kept.
    void replaceLast(const RGBAFrame& substitute);

    [[nodiscard]] const std::vector<Timed>& kept() const { return m_kept; }

private:
    std::int64_t m_delayCentiseconds;
    double m_changeThreshold;
    std::vector<Timed> m_kept;
    std::optional<RGBAFrame> m_last; ///< of those kept, as it came
};

/// What `Deduplicator` keeps of all frames.
[[nodiscard]] std::vector<Timed> deduplicate(
    std::span<const RGBAFrame> frames, std::int64_t perFrameDelayCentiseconds, double changeThreshold);

} // namespace FrameDeduplicator
} // namespace quillbox
