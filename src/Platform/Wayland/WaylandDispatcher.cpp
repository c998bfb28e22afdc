#include "Platform/Wayland/WaylandDispatcher.h"

#include <wayland-client.h>

#include <cerrno>

namespace quillbox {

WaylandDispatcher::WaylandDispatcher(wl_display* display, QObject* parent)
    : QObject(parent)
    , m_display(display)
    , m_readable(wl_display_get_fd(display), QSocketNotifier::Read)
    , m_writable(wl_display_get_fd(display), QSocketNotifier::Write)
{
    m_writable.setEnabled(false);
    connect(&m_readable, &QSocketNotifier::activated, this, &WaylandDispatcher::takeEvents);
    connect(&m_writable, &QSocketNotifier::activated, this, &WaylandDispatcher::send);
}

void WaylandDispatcher::takeEvents()
{
    while (!m_isBroken && wl_display_prepare_read(m_display) != 0)
        m_isBroken = wl_display_dispatch_pending(m_display) < 0;
    if (!m_isBroken)
        m_isBroken = wl_display_read_events(m_display) < 0 || wl_display_dispatch_pending(m_display) < 0;
    send();
    Q_EMIT dispatched();
}

void WaylandDispatcher::send()
{
    const bool isFull = wl_display_flush(m_display) < 0 && errno == EAGAIN;
    m_isBroken = m_isBroken || (!isFull && wl_display_get_error(m_display) != 0);
    m_writable.setEnabled(isFull && !m_isBroken);
    if (m_isBroken)
        m_readable.setEnabled(false);
}

} // namespace quillbox

#include "moc_WaylandDispatcher.cpp"
