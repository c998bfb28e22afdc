#pragma once

#include "Encoding/Pixels/PixelTypes.h"

#include <chrono>

namespace quillbox {

/// Tells how much of an overlay is left in pictures of a region that it covered: compositors may fade it out, and busy
/// ones do so late. What was there before is known, and so is what the overlay made of it. A value; thread: any.
class OverlayRemains {
public:
    /// Everything else may go on changing below the overlay: what is not as it was says nothing by itself.
    struct Likeness {
        bool isUncovered = false;  ///< all is as it was, but for what a pointer or a blinking caret may change
        bool isPartlySame = false; ///< some of it is: an overlay would have changed all
        bool isCovered = false;    ///< it is between the two, and nearly everywhere equally far
    };

    /// @param uncovered  What the region showed before the overlay came.
    /// @param covered    What it showed with the overlay.
    /// @pre Both have one size, at least 1 × 1.
    OverlayRemains(RGBAFrame uncovered, RGBAFrame covered);

    /// @param picture  What the region shows; one of another size is like neither.
    [[nodiscard]] Likeness likenessOf(const RGBAFrame& picture) const;

    /// When a recording may begin.
    enum class Answer {
        Wait,
        Begin,       ///< nothing of the overlay is left, or can be told from what the screen itself shows
        BeginAnyway, ///< something of it is left, and it has been waited for long enough
    };
    /// @param likeness     Of the latest picture.
    /// @param sinceHidden  Time since the overlay was hidden.
    /// @param atRest       Time since the latest picture came: none has followed.
    [[nodiscard]] static Answer answer(
        Likeness likeness, std::chrono::nanoseconds sinceHidden, std::chrono::nanoseconds atRest);

private:
    [[nodiscard]] bool isBetween(const RGBAFrame& picture) const;

    RGBAFrame m_uncovered;
    RGBAFrame m_covered;
};

} // namespace quillbox
