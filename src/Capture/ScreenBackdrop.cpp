#include "Capture/ScreenBackdrop.h"

#include "Capture/X11/X11Display.h"

#include <QByteArray>
#include <QGuiApplication>
#include <QScreen>

#include <cstdint>

namespace quillbox {
namespace {

/// The toolkit's connection to the X server, or null on another window system.
xcb_connection_t* toolkitConnection()
{
    const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 == nullptr ? nullptr : x11->connection();
}

xcb_atom_t atomOf(xcb_connection_t* connection, const QByteArray& name)
{
    const auto cookie
        = xcb_intern_atom(connection, /*only_if_exists=*/1, static_cast<std::uint16_t>(name.size()), name.constData());
    const XCBPointer<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

} // namespace

/// @see Extended Window Manager Hints, "Compositing Managers": who composites screen 0 owns _NET_WM_CM_S0.
bool ScreenBackdrop::showsThrough()
{
    auto* const connection = toolkitConnection();
    if (connection == nullptr)
        return false;
    const auto selection = atomOf(connection, "_NET_WM_CM_S0");
    if (selection == XCB_ATOM_NONE)
        return false;
    const XCBPointer<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, selection), nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

QPixmap ScreenBackdrop::picture(QScreen& screen)
{
    return screen.grabWindow(0);
}

void ScreenBackdrop::waitUntilApplied()
{
    auto* const connection = toolkitConnection();
    if (connection == nullptr)
        return;
    // Requests are carried out in order: once this one is answered, so are those before it.
    const XCBPointer<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

} // namespace quillbox
