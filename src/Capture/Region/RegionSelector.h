#pragma once

#include "Capture/CaptureRegion.h"

#include <functional>
#include <optional>

namespace quillbox {

/// Lets the user drag out the part of the main display to record. Used by reference only. Thread: main.
class RegionSelector {
public:
    /// Takes the outcome: a region of at least 5 × 5 points of the main display, or none.
    using Completion = std::function<void(std::optional<CaptureRegion>)>;

    RegionSelector() = default;
    RegionSelector(const RegionSelector&) = delete;
    RegionSelector& operator=(const RegionSelector&) = delete;
    virtual ~RegionSelector();

    /// Covers the main display with a dimmed overlay, in front and with the keyboard, and returns at once. On desktops
    /// that have to be asked for the screen this asks first, and the main display is the one that the user chooses;
    /// where the screen can't be had for another reason than the user's, completion gets any region, and the recording
    /// of it fails with that reason.
    /// @param completion  Called once: with the region, when the overlay has left the screen for good; with none when
    ///                    the user cancels, drags out less than 5 points either way, or there is no display.
    virtual void present(Completion completion);
};

} // namespace quillbox
