#include "Platform/X11/X11Queries.h"

#include "Platform/X11/X11Display.h"

#include <QGuiApplication>

#include <cstdint>

namespace quillbox {
namespace {

/// The toolkit's connection to the X server, or null on another window system.
xcb_connection_t* toolkitConnection()
{
    const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 == nullptr ? nullptr : x11->connection();
}

bool isOwned(xcb_connection_t* connection, std::string_view name)
{
    const auto cookie
        = xcb_intern_atom(connection, /*only_if_exists=*/1, static_cast<std::uint16_t>(name.size()), name.data());
    const XCBPointer<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(connection, cookie, nullptr));
    if (!atom || atom->atom == XCB_ATOM_NONE)
        return false;
    const XCBPointer<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, atom->atom), nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

} // namespace

void X11Queries::checkDisplay()
{
    const X11Display display; // which throws
}

bool X11Queries::isSelectionOwned(std::string_view name)
{
    auto* const connection = toolkitConnection();
    return connection != nullptr && isOwned(connection, name);
}

bool X11Queries::isSelectionOwnedOnDisplay(std::string_view name)
{
    const X11Display display;
    return isOwned(display.connection(), name);
}

void X11Queries::finishRequests()
{
    auto* const connection = toolkitConnection();
    if (connection == nullptr)
        return;
    // Requests are carried out in order: once this one is answered, so are those before it.
    const XCBPointer<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

} // namespace quillbox
