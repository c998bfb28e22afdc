#pragma once

#include "Encoding/Pixels/PixelTypes.h"

#include <optional>
#include <vector>

namespace quillbox {

/// Answers how much the frame at hand differs from frames before it. Several askers who kept the same frame cost one
/// comparison, and a frame that shares its pixels with the one before costs none.
/// A value; one thread at a time.
class FrameComparisons {
public:
    /// Makes `frame` the frame at hand.
    void turnTo(const RGBAFrame& frame);

    /// `FrameDeduplicator::fractionChanged` of `earlier` and the frame at hand, at the default tolerance.
    /// @pre there is a frame at hand.
    [[nodiscard]] double fractionChangedSince(const RGBAFrame& earlier);

    /// Whether that exceeds `threshold`. Costs less where the frames differ much. @pre as above.
    [[nodiscard]] bool changesMoreThan(const RGBAFrame& earlier, double threshold);

private:
    struct Answer {
        RGBAFrame earlier;
        double fraction = 0;
    };
    struct Verdict {
        RGBAFrame earlier;
        double threshold = 0;
        bool changesMore = false;
    };

    [[nodiscard]] std::optional<double> knownFraction(const RGBAFrame& earlier) const;

    std::optional<RGBAFrame> m_frame;
    std::vector<Answer> m_answers;
    std::vector<Verdict> m_verdicts;
};

} // namespace quillbox
