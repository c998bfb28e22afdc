#pragma once

#include "Capture/CaptureError.h"
#include "Capture/CaptureRegion.h"
#include "Capture/ScreenSession.h"

#include <functional>
#include <memory>
#include <variant>

namespace quillbox {

/// Lets the user drag out the part of the main display to record. Used by reference only. Thread: main.
class RegionSelector {
public:
    /// The user cancelled, dragged out less than 5 points either way, or there is no display.
    struct Cancelled {
        friend bool operator==(const Cancelled&, const Cancelled&) = default;
    };
    /// What came of a selection: none, a region of at least 5 × 5 points of the main display, or why the screen can't
    /// be had to select from.
    using Outcome = std::variant<Cancelled, CaptureRegion, CaptureError>;
    using Completion = std::function<void(Outcome)>;

    /// @param screen  Keeps the cast that a region is selected on, for the recorder that has the same session.
    explicit RegionSelector(std::shared_ptr<ScreenSession> screen = std::make_shared<ScreenSession>());
    RegionSelector(const RegionSelector&) = delete;
    RegionSelector& operator=(const RegionSelector&) = delete;
    virtual ~RegionSelector();

    /// Covers the main display with a dimmed overlay, in front and with the keyboard, and returns at once. On desktops
    /// that have to be asked for the screen this asks first, and the main display is the one that the user chooses.
    /// @param completion  Called once, when the overlay was hidden. Compositors may show it a little longer: the next
    ///                    stream of the session waits for that. What it throws ends the process.
    virtual void present(Completion completion);

private:
    std::shared_ptr<ScreenSession> m_screen;
};

} // namespace quillbox
