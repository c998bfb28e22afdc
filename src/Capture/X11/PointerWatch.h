#pragma once

#include "Capture/X11/PointerImage.h"
#include "Platform/X11/X11Display.h"

#include <xcb/xfixes.h>

namespace quillbox {

/// Follows the pointer's position and, by the XFixes extension, its picture.
class PointerWatch {
public:
    /// @param display  Outlives the watch; without the extension isWorking() is false.
    explicit PointerWatch(const X11Display& display);

    [[nodiscard]] bool isWorking() const { return m_display.xfixesEvents().has_value(); }

    /// Takes note of an event that reports a new picture; leaves any other alone.
    void note(const xcb_generic_event_t& event);

    /// Asks for the position. Waits for the server; what happened before is in the event queue then.
    void askForPosition();
    /// Asks for the picture if it is new. Waits for the server if so.
    void askForImage();

    [[nodiscard]] const PointerImage& image() const { return m_image; }
    /// Counts the pictures: as long as it stays the same, so does image().
    [[nodiscard]] std::int64_t generation() const { return m_generation; }
    /// The pixels the picture covers, in coordinates of the whole screen; empty if the pointer is not on it.
    [[nodiscard]] PixelRect place() const;

private:
    void fetchImage();

    const X11Display& m_display;
    PointerImage m_image;
    std::int64_t m_generation = 0;
    bool m_imageIsOld = true;
    bool m_isOnScreen = false;
    std::int32_t m_x = 0;
    std::int32_t m_y = 0;
};

} // namespace quillbox
