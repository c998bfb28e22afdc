#include "Platform/X11/X11Display.h"

#include "Platform/DisplayError.h"
#include "Platform/X11/DisplayScale.h"
#include "Translation/Translate.h"

#include <xcb/damage.h>
#include <xcb/randr.h>
#include <xcb/shm.h>
#include <xcb/xfixes.h>

#include <sys/socket.h>

#include <algorithm>
#include <span>
#include <string>
#include <string_view>

namespace quillbox {

namespace {

const xcb_screen_t* screenOf(xcb_connection_t* connection, int number)
{
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screens.rem > 1 && number > 0; --number)
        xcb_screen_next(&screens);
    return screens.data;
}

const xcb_visualtype_t* visualOf(const xcb_screen_t* screen)
{
    for (auto depths = xcb_screen_allowed_depths_iterator(screen); depths.rem > 0; xcb_depth_next(&depths))
        for (auto visuals = xcb_depth_visuals_iterator(depths.data); visuals.rem > 0; xcb_visualtype_next(&visuals))
            if (visuals.data->visual_id == screen->root_visual)
                return visuals.data;
    return nullptr;
}

/// Whether the server runs on this machine and takes file descriptors: only then can memory be shared.
bool isLocalSocket(int socket)
{
    sockaddr_storage address{};
    socklen_t length = sizeof address;
    // The socket functions take every kind of address by its common beginning.
    auto* const start = reinterpret_cast<sockaddr*>(&address); // NOLINT(cppcoreguidelines-pro-type-reinterpret-cast)
    return getsockname(socket, start, &length) == 0 && address.ss_family == AF_UNIX;
}

/// How good a choice for the main one a monitor is; the largest is the best.
enum class Rank { Any, Primary, ShowsPrimaryOutput };

Rank rankOf(const xcb_randr_monitor_info_t& monitor, xcb_randr_output_t primaryOutput)
{
    const std::span outputs(xcb_randr_monitor_info_outputs(&monitor), monitor.nOutput);
    if (primaryOutput != XCB_NONE && std::ranges::find(outputs, primaryOutput) != outputs.end())
        return Rank::ShowsPrimaryOutput;
    return monitor.primary != 0 ? Rank::Primary : Rank::Any;
}

/// The resources that the desktop has set on the root window, one a line.
std::string resources(const X11Display& display)
{
    constexpr std::uint32_t words = 1 << 18; // a megabyte; the longest in use are a few kilobytes
    const auto cookie = xcb_get_property(
        display.connection(), 0, display.root(), XCB_ATOM_RESOURCE_MANAGER, XCB_ATOM_STRING, 0, words);
    const XCBPointer<xcb_get_property_reply_t> reply(xcb_get_property_reply(display.connection(), cookie, nullptr));
    if (!reply || reply->format != 8)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
        static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
}

} // namespace

X11Display::X11Display()
{
    const char* const name = std::getenv("DISPLAY");
    if (name == nullptr || *name == '\0')
        throw DisplayError(DisplayError::Reason::NoDisplay,
            translate("DisplayError", "DISPLAY is not set, so there is no X11 display to record"));
    int screenNumber = 0;
    m_connection.reset(xcb_connect(nullptr, &screenNumber));
    if (xcb_connection_has_error(connection()) != 0)
        throw DisplayError(DisplayError::Reason::NoDisplay,
            withArguments(translate("DisplayError", "The X11 display %1 can't be connected to"), {name}));
    m_screen = screenOf(connection(), screenNumber);
    findExtensions();
}

void X11Display::findExtensions()
{
    xcb_connection_t* const c = connection();
    for (xcb_extension_t* extension : {&xcb_shm_id, &xcb_damage_id, &xcb_xfixes_id, &xcb_randr_id})
        xcb_prefetch_extension_data(c, extension);
    const auto present = [c](xcb_extension_t& extension) -> const xcb_query_extension_reply_t* {
        const auto* const data = xcb_get_extension_data(c, &extension);
        return data != nullptr && data->present != 0 ? data : nullptr;
    };
    // Each extension wants to be told the version that its client speaks before any other request.
    if (present(xcb_shm_id) != nullptr && isLocalSocket(socket())) {
        const XCBPointer<xcb_shm_query_version_reply_t> version(
            xcb_shm_query_version_reply(c, xcb_shm_query_version(c), nullptr));
        m_hasSharedMemory
            = version && (version->major_version > 1 || (version->major_version == 1 && version->minor_version >= 2));
    }
    if (const auto* const data = present(xcb_xfixes_id)) {
        const XCBPointer<xcb_xfixes_query_version_reply_t> version(
            xcb_xfixes_query_version_reply(c, xcb_xfixes_query_version(c, 2, 0), nullptr));
        if (version && version->major_version >= 2) // 2 brought regions
            m_xfixesEvents = data->first_event;
    }
    // Damage is told in XFixes' regions.
    if (const auto* const data = m_xfixesEvents ? present(xcb_damage_id) : nullptr) {
        const XCBPointer<xcb_damage_query_version_reply_t> version(
            xcb_damage_query_version_reply(c, xcb_damage_query_version(c, 1, 1), nullptr));
        if (version)
            m_damageEvents = data->first_event;
    }
    if (present(xcb_randr_id) != nullptr) {
        const XCBPointer<xcb_randr_query_version_reply_t> version(
            xcb_randr_query_version_reply(c, xcb_randr_query_version(c, 1, 5), nullptr));
        m_hasMonitors // 1.5 brought monitors
            = version && (version->major_version > 1 || (version->major_version == 1 && version->minor_version >= 5));
    }
}

PixelRect X11Display::wholeScreen() const
{
    return {0, 0, m_screen->width_in_pixels, m_screen->height_in_pixels};
}

PixelRect X11Display::mainMonitor() const
{
    if (!m_hasMonitors)
        return wholeScreen();
    const XCBPointer<xcb_randr_get_monitors_reply_t> reply(
        xcb_randr_get_monitors_reply(connection(), xcb_randr_get_monitors(connection(), root(), 1), nullptr));
    if (!reply)
        return wholeScreen();
    const XCBPointer<xcb_randr_get_output_primary_reply_t> primary(
        xcb_randr_get_output_primary_reply(connection(), xcb_randr_get_output_primary(connection(), root()), nullptr));
    const xcb_randr_output_t primaryOutput = primary ? primary->output : XCB_NONE;
    PixelRect found;
    auto foundRank = Rank::Any;
    auto monitors = xcb_randr_get_monitors_monitors_iterator(reply.get());
    for (; monitors.rem > 0; xcb_randr_monitor_info_next(&monitors)) {
        const xcb_randr_monitor_info_t& monitor = *monitors.data;
        const PixelRect place{monitor.x, monitor.y, monitor.width, monitor.height};
        const auto rank = rankOf(monitor, primaryOutput);
        if (!place.isEmpty() && (found.isEmpty() || rank > foundRank)) {
            found = place;
            foundRank = rank;
        }
    }
    found = found.intersected(wholeScreen()); // a monitor can be declared larger than the screen
    return found.isEmpty() ? wholeScreen() : found;
}

double X11Display::scale() const
{
    return displayScale(resources(*this), std::getenv("QT_SCALE_FACTOR"));
}

X11PixelFormat X11Display::layout() const
{
    const xcb_setup_t* const setup = xcb_get_setup(connection());
    const xcb_visualtype_t* const visual = visualOf(m_screen);
    X11PixelFormat layout;
    bool known = false;
    for (auto formats = xcb_setup_pixmap_formats_iterator(setup); formats.rem > 0; xcb_format_next(&formats)) {
        if (formats.data->depth != m_screen->root_depth)
            continue;
        layout.bitsPerPixel = formats.data->bits_per_pixel;
        layout.scanlinePadBits = formats.data->scanline_pad;
        known = true;
    }
    const bool hasMasks = visual != nullptr
        && (visual->_class == XCB_VISUAL_CLASS_TRUE_COLOR || visual->_class == XCB_VISUAL_CLASS_DIRECT_COLOR);
    if (hasMasks) {
        layout.leastSignificantByteFirst = setup->image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST;
        layout.redMask = visual->red_mask;
        layout.greenMask = visual->green_mask;
        layout.blueMask = visual->blue_mask;
        layout.carriesAlpha = m_screen->root_depth == 32 && layout.isBGRA();
    }
    if (!known || !hasMasks || !layout.isReadable())
        throw DisplayError(DisplayError::Reason::Unreadable,
            withArguments(
                translate("DisplayError",
                    "The screen's colours can't be read (depth %1); only true-colour screens can be recorded"),
                {std::to_string(m_screen->root_depth)}));
    return layout;
}

xcb_atom_t X11Display::atom(std::string_view name) const
{
    const auto cookie
        = xcb_intern_atom(connection(), /*only_if_exists=*/0, static_cast<std::uint16_t>(name.size()), name.data());
    const XCBPointer<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection(), cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

void X11Display::checkConnection() const
{
    if (xcb_connection_has_error(connection()) != 0)
        throw DisplayError(
            DisplayError::Reason::Gone, translate("DisplayError", "The connection to the X11 display was lost"));
}

} // namespace quillbox
