#include "Capture/X11/PointerWatch.h"

namespace quillbox {

PointerWatch::PointerWatch(const X11Display& display)
    : m_display(display)
{
    if (isWorking())
        xcb_xfixes_select_cursor_input(
            display.connection(), display.root(), XCB_XFIXES_CURSOR_NOTIFY_MASK_DISPLAY_CURSOR);
}

void PointerWatch::note(const xcb_generic_event_t& event)
{
    constexpr std::uint8_t sentBit = 0x80; // set when another client sent the event
    if (isWorking() && (event.response_type & ~sentBit) == *m_display.xfixesEvents() + XCB_XFIXES_CURSOR_NOTIFY)
        m_imageIsOld = true;
}

void PointerWatch::askForPosition()
{
    if (!isWorking())
        return;
    xcb_connection_t* const c = m_display.connection();
    const XCBPointer<xcb_query_pointer_reply_t> pointer(
        xcb_query_pointer_reply(c, xcb_query_pointer(c, m_display.root()), nullptr));
    m_isOnScreen = pointer && pointer->same_screen != 0;
    if (!m_isOnScreen)
        return;
    m_x = pointer->root_x;
    m_y = pointer->root_y;
}

void PointerWatch::askForImage()
{
    if (isWorking() && m_imageIsOld)
        fetchImage();
}

PixelRect PointerWatch::place() const
{
    return m_isOnScreen ? m_image.placedAt(m_x, m_y) : PixelRect{};
}

void PointerWatch::fetchImage()
{
    m_imageIsOld = false;
    ++m_generation;
    m_image = {};
    xcb_connection_t* const c = m_display.connection();
    const XCBPointer<xcb_xfixes_get_cursor_image_reply_t> reply(
        xcb_xfixes_get_cursor_image_reply(c, xcb_xfixes_get_cursor_image(c), nullptr));
    if (!reply)
        return; // a server may keep it secret: then there is nothing to draw
    const std::uint32_t* const pixels = xcb_xfixes_get_cursor_image_cursor_image(reply.get());
    const int count = xcb_xfixes_get_cursor_image_cursor_image_length(reply.get());
    if (count < int{reply->width} * reply->height)
        return;
    m_image.width = reply->width;
    m_image.height = reply->height;
    m_image.hotSpotX = reply->xhot;
    m_image.hotSpotY = reply->yhot;
    m_image.pixels.assign(pixels, pixels + int{reply->width} * reply->height);
}

} // namespace quillbox
