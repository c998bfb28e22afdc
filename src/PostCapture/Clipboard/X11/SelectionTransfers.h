#pragma once

#include <QByteArray>

#include <xcb/xcb.h>

#include <cstdint>
#include <vector>

namespace quillbox {

/// Data on its way to the windows that asked for it: in one piece, or, where it is long, in several, each sent once the
/// one before has been taken away. Thread: the connection's.
/// @see Inter-Client Communication Conventions Manual, 2.7.2 "Incremental Transfers"
class SelectionTransfers {
public:
    /// @param connection  Outlives this object; requests are left in its buffer.
    /// @param incremental  The atom INCR.
    SelectionTransfers(xcb_connection_t* connection, xcb_atom_t incremental);

    /// Puts `data` into the window's property, all of it or the first announcement.
    void send(xcb_window_t window, xcb_atom_t property, xcb_atom_t type, const QByteArray& data);
    /// To be told of every such event; goes on where it belongs to a transfer.
    void propertyChanged(const xcb_property_notify_event_t& event);
    void windowGone(xcb_window_t window);

private:
    struct Transfer {
        xcb_window_t window;
        xcb_atom_t property;
        xcb_atom_t type;
        QByteArray data; // shares its bytes with what was offered
        qsizetype sent = 0;
    };

    void watch(xcb_window_t window, bool isWatched);

    xcb_connection_t* m_connection;
    xcb_atom_t m_incremental;
    qsizetype m_largestPiece;
    std::vector<Transfer> m_running;
};

} // namespace quillbox
