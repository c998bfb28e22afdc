#pragma once

#include "Capture/Portal/ScreenCast.h"
#include "Encoding/PixelTypes.h"
#include "Platform/CaptureError.h"

#include <QCoro/QCoroTask>

#include <memory>
#include <optional>

namespace quillbox {

class ScreenCastPortal;

/// A cast of a monitor on whose first picture a region is selected: the recording that follows uses the same cast, so
/// that the user is asked for the screen once. Thread: main.
struct SelectedCast {
    std::shared_ptr<ScreenCastPortal> portal;
    ScreenCast cast;
    std::optional<PixelSize> points; ///< of the monitor, as far as that is known

    struct FirstPicture;

    /// Begins a cast and waits for the first picture of it, which is taken when the windows that were closed for it
    /// have faded out.
    /// @throws CaptureError  as CaptureStream::start() does.
    [[nodiscard]] static QCoro::Task<FirstPicture> open();

    /// Keeps it for the next recording.
    static void keep(SelectedCast cast);
    /// There is none, and this is what the next recording is to fail with.
    static void keep(CaptureError failure);
    /// What was kept, once; none where nothing was.
    /// @throws CaptureError  the one that was kept.
    [[nodiscard]] static std::optional<SelectedCast> take();
};

/// What the monitor showed before the region is selected.
struct SelectedCast::FirstPicture {
    SelectedCast cast;
    RGBAFrame picture; ///< all of the monitor, in its own pixels
};

} // namespace quillbox
