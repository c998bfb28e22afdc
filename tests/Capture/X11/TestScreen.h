#pragma once

#include "Encoding/Pixels/PixelTypes.h"
#include "Platform/PixelRect.h"

#include <xcb/xcb.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace quillbox::test {

/// Draws on a real X11 screen, over everything else, and knows what the screen then shows. Every operation has happened
/// on the server when it returns.
class TestScreen {
public:
    /// Covers the screen of DISPLAY with a black window that shows no pointer.
    TestScreen();
    ~TestScreen();
    TestScreen(const TestScreen&) = delete;
    TestScreen& operator=(const TestScreen&) = delete;

    /// Fills a rectangle. At depths below 24 only channels of 0 and 255 come out as they went in.
    void fill(PixelRect area, RGBColor color);
    /// Fills several rectangles with one request: the server draws them all or none.
    void fill(const std::vector<PixelRect>& areas, RGBColor color);
    void movePointer(std::int32_t x, std::int32_t y);
    /// Gives the pointer a picture: a filled square in one colour, its hot spot at (hotSpot, hotSpot). Side up to 16.
    void setPointer(std::int32_t side, std::int32_t hotSpot, RGBColor color);
    /// No picture: a pointer without a visible pixel.
    void hidePointer();
    /// Replaces the X resources, such as "Xft.dpi:\t192\n".
    void setResources(const std::string& text);
    [[nodiscard]] bool hasExtension(const std::string& name) const;
    [[nodiscard]] int depth() const;

    /// What was drawn there, opaque, as far as it lies on the screen; black elsewhere.
    [[nodiscard]] RGBAFrame expected(PixelRect area) const;

    /// What the screen shows there, without a pointer, by the plainest request; at depth 24 only.
    [[nodiscard]] RGBAFrame screenshot(PixelRect area) const;

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    void sync() const;
    [[nodiscard]] std::uint32_t pixelOf(RGBColor color) const;
    void defineCursor(std::int32_t side, std::int32_t hotSpot, RGBColor color, bool isVisible);

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    const xcb_screen_t* m_screen = nullptr;
    const xcb_visualtype_t* m_visual = nullptr;
    xcb_window_t m_window = 0;
    xcb_gcontext_t m_context = 0;
    std::vector<RGBColor> m_pixels;
};

} // namespace quillbox::test
