#pragma once

#include "Platform/PixelRect.h"
#include "Platform/X11/X11PixelFormat.h"

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string_view>

namespace quillbox {

/// Memory that xcb hands over.
struct XCBDeleter {
    void operator()(void* memory) const { std::free(memory); } // NOLINT(cppcoreguidelines-no-malloc): xcb's protocol
};
template <typename T> using XCBPointer = std::unique_ptr<T, XCBDeleter>;

/// One connection to the X server that DISPLAY names. For one thread, except where said otherwise.
class X11Display {
public:
    /// Connects; may wait for the server.
    /// @throws DisplayError  NoDisplay: DISPLAY is not set, or nothing answers there.
    X11Display();

    [[nodiscard]] xcb_connection_t* connection() const { return m_connection.get(); }
    [[nodiscard]] xcb_window_t root() const { return m_screen->root; }

    /// The whole screen as it was when the connection was made.
    [[nodiscard]] PixelRect wholeScreen() const;
    /// The monitor that shows the primary output, as toolkits choose theirs, else the primary monitor, else the first
    /// one, else the whole screen; in coordinates of the whole screen.
    [[nodiscard]] PixelRect mainMonitor() const;
    /// Device pixels a point, above 0, for a program without windows: the resource Xft.dpi ÷ 96 (1 without one) × the
    /// environment variable QT_SCALE_FACTOR, as Qt computes it where nothing else is set.
    [[nodiscard]] double scale() const;
    /// @throws DisplayError  Unreadable: the screen has no true colours.
    [[nodiscard]] X11PixelFormat layout() const;

    /// The server's number for a name, which it makes if need be; XCB_ATOM_NONE once the connection broke. Waits for
    /// the server.
    [[nodiscard]] xcb_atom_t atom(std::string_view name) const;

    /// Which extensions can be used; where events belong to one, the number of its first event.
    [[nodiscard]] bool hasSharedMemory() const { return m_hasSharedMemory; }
    [[nodiscard]] bool hasMonitors() const { return m_hasMonitors; }
    [[nodiscard]] std::optional<std::uint8_t> damageEvents() const { return m_damageEvents; }
    [[nodiscard]] std::optional<std::uint8_t> xfixesEvents() const { return m_xfixesEvents; }

    /// The socket to the server, open as long as this object lives. Shutting it down from another thread ends every
    /// wait for the server.
    [[nodiscard]] int socket() const { return xcb_get_file_descriptor(connection()); }

    /// @throws DisplayError  Gone: the connection broke.
    void checkConnection() const;

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    void findExtensions();

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    const xcb_screen_t* m_screen = nullptr; // the connection's
    bool m_hasSharedMemory = false;
    bool m_hasMonitors = false;
    std::optional<std::uint8_t> m_damageEvents;
    std::optional<std::uint8_t> m_xfixesEvents;
};

} // namespace quillbox
