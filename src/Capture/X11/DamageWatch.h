#pragma once

#include "Platform/X11/X11Display.h"

#include <xcb/damage.h>
#include <xcb/xfixes.h>

namespace quillbox {

/// Learns from the XDamage extension which part of the screen has changed.
class DamageWatch {
public:
    /// @param display  Outlives the watch; without the extension isWorking() is false.
    explicit DamageWatch(const X11Display& display);

    [[nodiscard]] bool isWorking() const { return m_damage != XCB_NONE; }

    /// Takes note of an event that is a damage report; leaves any other alone.
    void note(const xcb_generic_event_t& event);

    /// The part of `within` that has changed since the last call, as its bounding box; empty if none has. What changes
    /// from now on is reported anew.
    [[nodiscard]] PixelRect take(PixelRect within);

private:
    const X11Display& m_display;
    xcb_damage_damage_t m_damage = XCB_NONE;
    xcb_xfixes_region_t m_parts = XCB_NONE;
    bool m_hasReport = false;
};

} // namespace quillbox
