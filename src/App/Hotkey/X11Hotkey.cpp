#include "App/Hotkey/X11Hotkey.h"

#include "App/Hotkey/HotkeyMath.h"
#include "App/Hotkey/KeyboardMap.h"
#include "Platform/DisplayError.h"
#include "Platform/X11/X11Display.h"

#include <QSocketNotifier>

namespace quillbox {
namespace {

/// Asks the server for the key, in place of what the connection had before.
HotkeyStatus grabKey(const X11Display& display, std::uint8_t key, std::uint32_t wanted)
{
    auto* const connection = display.connection();
    const auto bits = KeyboardMap::modifierBits(connection);
    if (((wanted & HotkeyMath::command) != 0 && bits.super == 0)
        || ((wanted & HotkeyMath::option) != 0 && bits.alt == 0))
        return HotkeyStatus::Unavailable; // a keyboard without that modifier
    const auto held = static_cast<std::uint16_t>(((wanted & HotkeyMath::command) != 0 ? bits.super : 0)
        | ((wanted & HotkeyMath::option) != 0 ? bits.alt : 0)
        | ((wanted & HotkeyMath::shift) != 0 ? XCB_MOD_MASK_SHIFT : 0)
        | ((wanted & HotkeyMath::control) != 0 ? XCB_MOD_MASK_CONTROL : 0));
    const auto letGo = [connection, root = display.root()] { // only of grabs of this connection
        xcb_ungrab_key(connection, XCB_GRAB_ANY, root, XCB_MOD_MASK_ANY);
    };
    letGo();
    for (const std::uint16_t locks : KeyboardMap::unions(bits.locks)) {
        const auto cookie = xcb_grab_key_checked(connection, /*owner_events=*/0, display.root(),
            static_cast<std::uint16_t>(held | locks), key, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        const XCBPointer<xcb_generic_error_t> error(xcb_request_check(connection, cookie));
        if (error) {
            letGo(); // a key that works only with some locks helps nobody
            xcb_flush(connection);
            return HotkeyStatus::Taken;
        }
    }
    return HotkeyStatus::Active;
}

HotkeyState grabOn(const X11Display& display, std::uint32_t keyCode, std::uint32_t wanted)
{
    const auto key = KeyboardMap::x11KeyCode(keyCode);
    if (!key)
        return {.status = HotkeyStatus::Unavailable};
    return {.status = grabKey(display, *key, wanted), .key = KeyboardMap::label(display.connection(), *key)};
}

} // namespace

struct X11Hotkey::Connection {
    X11Display display;
    QSocketNotifier notifier{display.socket(), QSocketNotifier::Read};
};

X11Hotkey::X11Hotkey()
{
    try {
        m_connection = std::make_unique<Connection>();
    } catch (const DisplayError&) {
        return; // no X server: the status says unavailable once it is asked for
    }
    connect(&m_connection->notifier, &QSocketNotifier::activated, this, &X11Hotkey::takeEvents);
}

X11Hotkey::~X11Hotkey() = default; // the server lets go of the grabs of a connection that closes

void X11Hotkey::grab(std::uint32_t keyCode, std::uint32_t modifiers)
{
    m_wish = Wish{keyCode, modifiers};
    grabAgain();
}

void X11Hotkey::grabAgain()
{
    if (!m_connection) {
        setState({.status = HotkeyStatus::Unavailable});
        return;
    }
    setState(grabOn(m_connection->display, m_wish->keyCode, m_wish->modifiers));
    // Waiting for the answers may have fetched events, which the notifier will not tell of any more.
    QMetaObject::invokeMethod(this, &X11Hotkey::takeEvents, Qt::QueuedConnection);
}

void X11Hotkey::retry()
{
    if (state().status == HotkeyStatus::Taken)
        grabAgain();
}

HotkeyState X11Hotkey::tryOut(std::uint32_t keyCode, std::uint32_t modifiers)
{
    const X11Display display;
    return grabOn(display, keyCode, modifiers);
}

void X11Hotkey::takeEvents()
{
    auto* const connection = m_connection->display.connection();
    int presses = 0;
    bool hasChanged = false;
    while (const XCBPointer<xcb_generic_event_t> event{xcb_poll_for_event(connection)}) {
        const int type = event->response_type & 0x7F;
        presses += type == XCB_KEY_PRESS ? 1 : 0;
        hasChanged = hasChanged || type == XCB_MAPPING_NOTIFY;
    }
    if (xcb_connection_has_error(connection) != 0) {
        m_connection->notifier.setEnabled(false);
        setState({.status = HotkeyStatus::Unavailable}); // the display is gone
        return;
    }
    if (hasChanged)
        grabAgain();
    if (presses == 0)
        return;
    // The press took hold of the whole keyboard until the key is let go; the overlay wants it before that.
    xcb_ungrab_keyboard(connection, XCB_CURRENT_TIME);
    const XCBPointer<xcb_get_input_focus_reply_t> done(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
    // Waiting for the answer may have fetched another press, which the notifier will not tell of any more.
    QMetaObject::invokeMethod(this, &X11Hotkey::takeEvents, Qt::QueuedConnection);
    for (; presses > 0; --presses)
        Q_EMIT pressed();
}

} // namespace quillbox

#include "moc_X11Hotkey.cpp"
