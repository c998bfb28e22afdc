#include "PostCapture/Clipboard/X11/SelectionTransfers.h"

#include <algorithm>

namespace quillbox {

SelectionTransfers::SelectionTransfers(xcb_connection_t* connection, xcb_atom_t incremental)
    : m_connection(connection)
    , m_incremental(incremental)
{
    constexpr qsizetype header = 32;               // of the request that sets a property, with room to spare
    constexpr qsizetype politePiece = 1024 * 1024; // longer ones keep other programs waiting for the server
    m_largestPiece = std::min(qsizetype{xcb_get_maximum_request_length(connection)} * 4 - header, politePiece);
}

void SelectionTransfers::send(xcb_window_t window, xcb_atom_t property, xcb_atom_t type, const QByteArray& data)
{
    // A program that asks anew for the same place has given up on what was coming there.
    std::erase_if(m_running, [&](const Transfer& one) { return one.window == window && one.property == property; });
    if (data.size() <= m_largestPiece) {
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, property, type, 8,
            static_cast<std::uint32_t>(data.size()), data.constData());
        return;
    }
    watch(window, true);
    m_running.push_back({.window = window, .property = property, .type = type, .data = data});
    const auto atLeast = static_cast<std::uint32_t>(std::min<qsizetype>(data.size(), INT32_MAX));
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, property, m_incremental, 32, 1, &atLeast);
}

void SelectionTransfers::propertyChanged(const xcb_property_notify_event_t& event)
{
    if (event.state != XCB_PROPERTY_DELETE)
        return;
    const auto transfer = std::ranges::find_if(
        m_running, [&event](const Transfer& one) { return one.window == event.window && one.property == event.atom; });
    if (transfer == m_running.end())
        return;
    const auto length = std::min(m_largestPiece, transfer->data.size() - transfer->sent);
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, transfer->window, transfer->property, transfer->type, 8,
        static_cast<std::uint32_t>(length), transfer->data.constData() + transfer->sent);
    transfer->sent += length;
    if (length > 0)
        return;
    m_running.erase(transfer); // an empty piece was the end
    if (std::ranges::find(m_running, event.window, &Transfer::window) == m_running.end())
        watch(event.window, false);
}

void SelectionTransfers::windowGone(xcb_window_t window)
{
    std::erase_if(m_running, [window](const Transfer& one) { return one.window == window; });
}

void SelectionTransfers::watch(xcb_window_t window, bool isWatched)
{
    const std::uint32_t events
        = isWatched ? XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY : XCB_EVENT_MASK_NO_EVENT;
    xcb_change_window_attributes(m_connection, window, XCB_CW_EVENT_MASK, &events);
}

} // namespace quillbox
