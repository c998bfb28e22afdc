#include "Capture/X11/ScreenGrabber.h"

#include "Capture/CaptureError.h"
#include "Translation/Translate.h"

#include <algorithm>
#include <string>

namespace quillbox {

namespace {

CaptureGeometry planFor(const X11Display& display, CaptureRegion region, double scale)
{
    const PixelRect monitor = display.mainMonitor();
    const auto plan = captureGeometry(region, monitor, scale);
    if (!plan) {
        const auto size = sizeInPoints(monitor, scale);
        throw CaptureError(CaptureError::Reason::OutsideDisplay,
            withArguments(translate("CaptureError", "The region lies outside the main display, which is %1×%2"),
                {std::to_string(size.width), std::to_string(size.height)}));
    }
    return *plan;
}

} // namespace

ScreenGrabber::ScreenGrabber(const X11Display& display, CaptureRegion region, double scale)
    : m_display(display)
    , m_plan(planFor(display, region, scale))
    , m_picture(display, m_plan.source)
    , m_damage(display)
    , m_pointer(display)
    , m_screen(display.wholeScreen())
    , m_stale(m_plan.source)
{
    const std::uint32_t wantedEvents = XCB_EVENT_MASK_STRUCTURE_NOTIFY; // the root window's size is the screen's
    xcb_change_window_attributes(display.connection(), display.root(), XCB_CW_EVENT_MASK, &wantedEvents);
}

std::optional<RGBAFrame> ScreenGrabber::grab()
{
    m_pointer.askForPosition();
    readEvents();
    m_pointer.askForImage();
    const bool changed = updatePicture();
    m_display.checkConnection();

    const PointerState pointer = pointerToDraw();
    if (!changed && pointer == m_drawn)
        return std::nullopt;
    if (pointer != m_drawn) {
        for (const PixelRect& place : {m_drawn.place, pointer.place})
            m_picture.changedBands().markRows(place.y, place.height);
    }
    m_drawn = pointer;
    return compose();
}

void ScreenGrabber::fetchAnew()
{
    m_stale = m_plan.source;
    m_mustDeliver = true;
}

void ScreenGrabber::readEvents()
{
    while (const XCBPointer<xcb_generic_event_t> event{xcb_poll_for_event(m_display.connection())}) {
        m_damage.note(*event);
        m_pointer.note(*event);
        noteScreenSize(*event);
    }
}

void ScreenGrabber::noteScreenSize(const xcb_generic_event_t& event)
{
    if (event.response_type != XCB_CONFIGURE_NOTIFY) // not one that a client has sent
        return;
    const auto& change = reinterpret_cast<const xcb_configure_notify_event_t&>(event);
    const PixelRect screen{0, 0, change.width, change.height};
    if (change.window != m_display.root() || screen == m_screen)
        return;
    m_screen = screen;
    m_picture.blacken();
    m_stale = m_plan.source;
    m_mustDeliver = true;
}

/// @return whether there is a new picture to deliver.
bool ScreenGrabber::updatePicture()
{
    const PixelRect visible = m_plan.source.intersected(m_screen); // the server refuses what lies outside
    const PixelRect suspect = m_damage.isWorking() ? m_damage.take(visible) : visible;
    PixelRect box = suspect.united(m_stale).intersected(visible);
    if (!box.isEmpty()) {
        const bool isMostOfIt = box.area() > visible.area() / 2;
        if (isMostOfIt)
            box = visible; // straight into the picture, if nothing is cut off
        const bool mayOverwrite = isMostOfIt && m_damage.isWorking();
        switch (m_picture.fetch(box, mayOverwrite)) {
        case ScreenPicture::Outcome::Refused:
            m_stale = box; // the next tick tries again
            return false;
        case ScreenPicture::Outcome::Updated:
            m_mustDeliver = true;
            break;
        case ScreenPicture::Outcome::Unchanged:
            break;
        }
    }
    m_stale = {};
    const bool deliver = m_mustDeliver;
    m_mustDeliver = false;
    return deliver;
}

ScreenGrabber::PointerState ScreenGrabber::pointerToDraw() const
{
    const PixelRect place = m_pointer.place().relativeTo(m_plan.source);
    if (place.intersected(extent()).isEmpty())
        return {};
    return {place, m_pointer.generation()};
}

RGBAFrame ScreenGrabber::compose()
{
    const PointerImage none;
    const bool hasPointer = !m_drawn.place.isEmpty();
    const DrawnPointer drawn(m_picture.data(), m_picture.stride(), extent(), hasPointer ? m_pointer.image() : none,
        hasPointer ? m_drawn.place : PixelRect{});
    const bool isScaled = m_plan.output != PixelSize{m_plan.source.width, m_plan.source.height};
    if (!isScaled)
        return m_bands.remade(
            m_plan.output, m_picture.changedBands(), [this](std::int64_t firstRow, std::int64_t rows) {
                return PixelBufferAdapter::makeBand(m_picture.buffer(), firstRow, rows);
            });
    const auto frame = PixelBufferAdapter::makeFrame(m_picture.buffer());
    precondition(frame.has_value(), "our own picture has an address");
    m_picture.changedBands().clear();
    return m_bands.compared(scaledTo(*frame, m_plan.output));
}

} // namespace quillbox
