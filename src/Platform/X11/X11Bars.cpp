#include "Platform/X11/X11Bars.h"

#include <xcb/xfixes.h>

#include <array>
#include <bit>

namespace quillbox {
namespace {

/// One channel, 0…255, where its mask has its bits.
std::uint32_t channelBits(std::uint32_t value, std::uint32_t mask)
{
    if (mask == 0)
        return 0;
    const auto shift = std::countr_zero(mask);
    const std::uint64_t largest = mask >> shift;
    return static_cast<std::uint32_t>((value * largest + 127) / 255) << shift;
}

} // namespace

std::uint32_t pixelOf(std::uint32_t color, const X11PixelFormat& format)
{
    return channelBits(color >> 16 & 0xFF, format.redMask) | channelBits(color >> 8 & 0xFF, format.greenMask)
        | channelBits(color & 0xFF, format.blueMask);
}

X11Bars::X11Bars(std::span<const Bar> bars)
{
    if (!m_display.xfixesEvents())
        return;
    const auto format = m_display.layout();
    const Atoms atoms{.windowType = m_display.atom("_NET_WM_WINDOW_TYPE"),
        .dragged = m_display.atom("_NET_WM_WINDOW_TYPE_DND"),
        .shadow = m_display.atom("_COMPTON_SHADOW")};
    for (const Bar& bar : bars)
        show(bar, pixelOf(bar.color, format), atoms);
    (void)xcb_flush(m_display.connection()); // a connection that broke shows nothing
}

void X11Bars::show(const Bar& bar, std::uint32_t pixel, const Atoms& atoms)
{
    xcb_connection_t* const c = m_display.connection();
    const xcb_window_t window = xcb_generate_id(c);
    const std::array<std::uint32_t, 2> values{pixel, /*override_redirect=*/1};
    xcb_create_window(c, XCB_COPY_FROM_PARENT, window, m_display.root(), static_cast<std::int16_t>(bar.place.x),
        static_cast<std::int16_t>(bar.place.y), static_cast<std::uint16_t>(bar.place.width),
        static_cast<std::uint16_t>(bar.place.height), /*border_width=*/0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
        XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values.data());

    // Pictures that are dragged have no shadow; picom also goes by a property of its own.
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, window, atoms.windowType, XCB_ATOM_ATOM, 32, 1, &atoms.dragged);
    const std::uint32_t none = 0;
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, window, atoms.shadow, XCB_ATOM_CARDINAL, 32, 1, &none);

    const xcb_xfixes_region_t nowhere = xcb_generate_id(c); // takes clicks
    xcb_xfixes_create_region(c, nowhere, 0, nullptr);
    xcb_xfixes_set_window_shape_region(c, window, XCB_SHAPE_SK_INPUT, 0, 0, nowhere);
    xcb_xfixes_destroy_region(c, nowhere);
    xcb_map_window(c, window);
}

} // namespace quillbox
