#pragma once

#include "Capture/CaptureGeometry.h"
#include "Capture/CaptureRegion.h"
#include "Capture/IncrementalFrameBuilder.h"
#include "Capture/X11/DamageWatch.h"
#include "Capture/X11/PointerWatch.h"
#include "Capture/X11/ScreenPicture.h"

#include <optional>
#include <vector>

namespace quillbox {

/// Grabs one region of an X11 screen, the pointer included, whenever it has changed. For one thread.
class ScreenGrabber {
public:
    /// @param display  Outlives the grabber.
    /// @param scale  Device pixels a point, above 0.
    /// @throws CaptureError  OutsideDisplay.
    /// @throws DisplayError  Unreadable.
    ScreenGrabber(const X11Display& display, CaptureRegion region, double scale);

    /// The region's picture if it has changed since the last call; the first call gives one unless the server refuses
    /// it. All are of one size. What has left the screen because that became smaller is black.
    /// @throws DisplayError  Gone.
    [[nodiscard]] std::optional<RGBAFrame> grab();

    /// The next call of grab() that the server does not refuse fetches the whole region and gives its picture, whatever
    /// has been reported as changed.
    void fetchAnew();

private:
    /// The pointer as drawn into the picture.
    struct PointerState {
        PixelRect place; // empty when it lies outside
        std::int64_t generation = 0;

        friend bool operator==(const PointerState&, const PointerState&) = default;
    };

    void readEvents();
    void noteScreenSize(const xcb_generic_event_t& event);
    [[nodiscard]] bool updatePicture();
    [[nodiscard]] PixelRect extent() const { return m_plan.source.relativeTo(m_plan.source); }
    [[nodiscard]] PointerState pointerToDraw() const;
    [[nodiscard]] RGBAFrame compose();

    const X11Display& m_display;
    CaptureGeometry m_plan;
    ScreenPicture m_picture;
    DamageWatch m_damage;
    PointerWatch m_pointer;
    PixelRect m_screen; // the whole screen as it is now
    PixelRect m_stale;  // to be fetched whatever the damage says
    PointerState m_drawn;
    bool m_mustDeliver = true; // even if no pixel turns out to be new
    IncrementalFrameBuilder m_bands;
};

} // namespace quillbox
