#include "Capture/X11/DamageWatch.h"

namespace quillbox {

namespace {

PixelRect rectOf(const xcb_rectangle_t& area)
{
    return {area.x, area.y, area.width, area.height};
}

} // namespace

// Everything made here on the server goes with the connection.
DamageWatch::DamageWatch(const X11Display& display)
    : m_display(display)
{
    if (!display.damageEvents())
        return;
    xcb_connection_t* const c = display.connection();
    const xcb_damage_damage_t damage = xcb_generate_id(c);
    const auto created = xcb_damage_create_checked(c, damage, display.root(), XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
    const XCBPointer<xcb_generic_error_t> error(xcb_request_check(c, created));
    if (error)
        return;
    m_damage = damage;
    m_parts = xcb_generate_id(c);
    xcb_xfixes_create_region(c, m_parts, 0, nullptr);
}

void DamageWatch::note(const xcb_generic_event_t& event)
{
    constexpr std::uint8_t sentBit = 0x80; // set when another client sent the event
    if (isWorking() && (event.response_type & ~sentBit) == *m_display.damageEvents() + XCB_DAMAGE_NOTIFY)
        m_hasReport = true;
}

PixelRect DamageWatch::take(PixelRect within)
{
    if (!m_hasReport)
        return {};
    m_hasReport = false;
    // The reported box is no guide: it may cover the region between two changes that don't touch it, and what has
    // changed since the report, and is forgotten with it, may lie elsewhere.
    xcb_connection_t* const c = m_display.connection();
    xcb_damage_subtract(c, m_damage, XCB_NONE, m_parts);
    const XCBPointer<xcb_xfixes_fetch_region_reply_t> reply(
        xcb_xfixes_fetch_region_reply(c, xcb_xfixes_fetch_region(c, m_parts), nullptr));
    if (!reply)
        return within;
    PixelRect box;
    const xcb_rectangle_t* const parts = xcb_xfixes_fetch_region_rectangles(reply.get());
    for (int i = 0; i < xcb_xfixes_fetch_region_rectangles_length(reply.get()); ++i)
        box = box.united(rectOf(parts[i]).intersected(within));
    return box;
}

} // namespace quillbox
