#include "TestScreen.h"

#include "Platform/X11/X11Display.h"

#include <algorithm>
#include <bit>
#include <stdexcept>

namespace quillbox::test {

namespace {

const xcb_visualtype_t* visualOf(const xcb_screen_t* screen)
{
    for (auto depths = xcb_screen_allowed_depths_iterator(screen); depths.rem > 0; xcb_depth_next(&depths))
        for (auto visuals = xcb_depth_visuals_iterator(depths.data); visuals.rem > 0; xcb_visualtype_next(&visuals))
            if (visuals.data->visual_id == screen->root_visual)
                return visuals.data;
    throw std::runtime_error("the screen has no visual");
}

xcb_rectangle_t rectangleOf(PixelRect area)
{
    return {static_cast<std::int16_t>(area.x), static_cast<std::int16_t>(area.y),
        static_cast<std::uint16_t>(area.width), static_cast<std::uint16_t>(area.height)};
}

std::uint16_t wide(std::uint8_t channel)
{
    return static_cast<std::uint16_t>(channel * 0x101);
}

} // namespace

TestScreen::TestScreen()
    : m_connection(xcb_connect(nullptr, nullptr))
{
    xcb_connection_t* const c = m_connection.get();
    if (xcb_connection_has_error(c) != 0)
        throw std::runtime_error("no display to test with");
    m_screen = xcb_setup_roots_iterator(xcb_get_setup(c)).data;
    m_visual = visualOf(m_screen);
    m_pixels.resize(std::size_t{m_screen->width_in_pixels} * m_screen->height_in_pixels);

    m_window = xcb_generate_id(c);
    const std::uint32_t values[]{m_screen->black_pixel, 1}; // no window manager moves it
    xcb_create_window(c, XCB_COPY_FROM_PARENT, m_window, m_screen->root, 0, 0, m_screen->width_in_pixels,
        m_screen->height_in_pixels, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
        XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values);
    xcb_map_window(c, m_window);
    m_context = xcb_generate_id(c);
    xcb_create_gc(c, m_context, m_window, 0, nullptr);
    hidePointer();
}

TestScreen::~TestScreen() = default; // the window goes with the connection

void TestScreen::fill(PixelRect area, RGBColor color)
{
    fill(std::vector{area}, color);
}

void TestScreen::fill(const std::vector<PixelRect>& areas, RGBColor color)
{
    const std::uint32_t pixel = pixelOf(color);
    xcb_change_gc(m_connection.get(), m_context, XCB_GC_FOREGROUND, &pixel);
    std::vector<xcb_rectangle_t> rectangles;
    const PixelRect screen{0, 0, m_screen->width_in_pixels, m_screen->height_in_pixels};
    for (const PixelRect& area : areas) {
        const PixelRect visible = area.intersected(screen);
        for (std::int32_t y = visible.y; y < visible.y + visible.height; ++y)
            std::fill_n(m_pixels.begin() + std::int64_t{y} * screen.width + visible.x, visible.width, color);
        rectangles.push_back(rectangleOf(area));
    }
    xcb_poly_fill_rectangle(
        m_connection.get(), m_window, m_context, static_cast<std::uint32_t>(rectangles.size()), rectangles.data());
    sync();
}

void TestScreen::movePointer(std::int32_t x, std::int32_t y)
{
    xcb_warp_pointer(m_connection.get(), XCB_NONE, m_screen->root, 0, 0, 0, 0, static_cast<std::int16_t>(x),
        static_cast<std::int16_t>(y));
    sync();
}

void TestScreen::setPointer(std::int32_t side, std::int32_t hotSpot, RGBColor color)
{
    defineCursor(side, hotSpot, color, true);
}

void TestScreen::hidePointer()
{
    defineCursor(1, 0, {}, false);
}

void TestScreen::defineCursor(std::int32_t side, std::int32_t hotSpot, RGBColor color, bool isVisible)
{
    xcb_connection_t* const c = m_connection.get();
    const auto extent = static_cast<std::uint16_t>(side);
    const xcb_pixmap_t shape = xcb_generate_id(c);
    xcb_create_pixmap(c, 1, shape, m_window, extent, extent);
    const xcb_gcontext_t context = xcb_generate_id(c);
    const std::uint32_t bit = isVisible ? 1 : 0;
    xcb_create_gc(c, context, shape, XCB_GC_FOREGROUND, &bit);
    const xcb_rectangle_t everything{0, 0, extent, extent};
    xcb_poly_fill_rectangle(c, shape, context, 1, &everything);
    const xcb_cursor_t cursor = xcb_generate_id(c);
    const auto hot = static_cast<std::uint16_t>(hotSpot);
    xcb_create_cursor(c, cursor, shape, shape, wide(color.r), wide(color.g), wide(color.b), 0, 0, 0, hot, hot);
    xcb_change_window_attributes(c, m_window, XCB_CW_CURSOR, &cursor);
    xcb_free_cursor(c, cursor); // the window keeps it
    xcb_free_gc(c, context);
    xcb_free_pixmap(c, shape);
    sync();
}

void TestScreen::setResources(const std::string& text)
{
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, m_screen->root, XCB_ATOM_RESOURCE_MANAGER,
        XCB_ATOM_STRING, 8, static_cast<std::uint32_t>(text.size()), text.data());
    sync();
}

bool TestScreen::hasExtension(const std::string& name) const
{
    xcb_connection_t* const c = m_connection.get();
    const XCBPointer<xcb_query_extension_reply_t> reply(xcb_query_extension_reply(
        c, xcb_query_extension(c, static_cast<std::uint16_t>(name.size()), name.c_str()), nullptr));
    return reply && reply->present != 0;
}

int TestScreen::depth() const
{
    return m_screen->root_depth;
}

RGBAFrame TestScreen::expected(PixelRect area) const
{
    Bytes pixels;
    for (std::int32_t y = area.y; y < area.y + area.height; ++y) {
        for (std::int32_t x = area.x; x < area.x + area.width; ++x) {
            const bool isInside = x >= 0 && y >= 0 && x < m_screen->width_in_pixels && y < m_screen->height_in_pixels;
            const RGBColor color = isInside
                ? m_pixels[static_cast<std::size_t>(y) * m_screen->width_in_pixels + std::size_t(x)]
                : RGBColor();
            pixels.insert(pixels.end(), {color.r, color.g, color.b, 255});
        }
    }
    return RGBAFrame(area.width, area.height, std::move(pixels));
}

RGBAFrame TestScreen::screenshot(PixelRect area) const
{
    xcb_connection_t* const c = m_connection.get();
    const xcb_rectangle_t box = rectangleOf(area);
    const XCBPointer<xcb_get_image_reply_t> reply(xcb_get_image_reply(c,
        xcb_get_image(c, XCB_IMAGE_FORMAT_Z_PIXMAP, m_screen->root, box.x, box.y, box.width, box.height, ~0U),
        nullptr));
    if (!reply)
        throw std::runtime_error("the display refuses its pixels");
    const std::uint8_t* const data = xcb_get_image_data(reply.get());
    Bytes pixels;
    for (std::int64_t i = 0; i < area.area(); ++i)
        pixels.insert(pixels.end(), {data[i * 4 + 2], data[i * 4 + 1], data[i * 4], 255});
    return RGBAFrame(area.width, area.height, std::move(pixels));
}

void TestScreen::sync() const
{
    xcb_connection_t* const c = m_connection.get();
    const XCBPointer<xcb_get_input_focus_reply_t> reply(xcb_get_input_focus_reply(c, xcb_get_input_focus(c), nullptr));
    if (!reply)
        throw std::runtime_error("the display is gone");
}

std::uint32_t TestScreen::pixelOf(RGBColor color) const
{
    const auto channel = [](std::uint32_t mask, std::uint32_t value) {
        const std::uint32_t maximum = mask >> std::countr_zero(mask);
        return ((value * maximum + 127) / 255) << std::countr_zero(mask);
    };
    return channel(m_visual->red_mask, color.r) | channel(m_visual->green_mask, color.g)
        | channel(m_visual->blue_mask, color.b);
}

} // namespace quillbox::test
