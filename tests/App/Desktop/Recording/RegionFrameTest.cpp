#include "App/Desktop/Recording/RegionFrame.h"

#include "Capture/ScreenSession.h"
#include "Platform/X11/X11Bars.h"
#include "RecorderFixture.h"

#include <gtest/gtest.h>

#include <span>

namespace quillbox {
namespace {

constexpr PixelRect wholeDisplay{0, 0, 1000, 500};

/// A window of another connection.
struct SeenBar {
    PixelRect place;
    bool isOverrideRedirect = false;
    bool isUnderThePointer = false; ///< when the pointer is on it
};

/// What is on the X server's screen, the last window at the top.
std::vector<SeenBar> framesOnScreen(const X11Display& server)
{
    auto* const c = server.connection();
    const XCBPointer<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(c, xcb_query_tree(c, server.root()), nullptr));
    std::vector<SeenBar> seen;
    for (const xcb_window_t window : std::span(xcb_query_tree_children(tree.get()), tree->children_len)) {
        const XCBPointer<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(c, xcb_get_window_attributes(c, window), nullptr));
        const XCBPointer<xcb_get_geometry_reply_t> geometry(
            xcb_get_geometry_reply(c, xcb_get_geometry(c, window), nullptr));
        if (!attributes || !geometry || attributes->map_state != XCB_MAP_STATE_VIEWABLE)
            continue; // gone meanwhile, or not shown
        const PixelRect place{geometry->x, geometry->y, geometry->width, geometry->height};
        xcb_warp_pointer(c, XCB_NONE, server.root(), 0, 0, 0, 0, geometry->x, geometry->y);
        const XCBPointer<xcb_query_pointer_reply_t> pointer(
            xcb_query_pointer_reply(c, xcb_query_pointer(c, server.root()), nullptr));
        seen.push_back({.place = place,
            .isOverrideRedirect = attributes->override_redirect != 0,
            .isUnderThePointer = pointer && pointer->child == window});
    }
    return seen;
}

TEST(RegionFrame, SurroundsTheRegionWithoutTouchingIt)
{
    const PixelRect region{100, 50, 30, 20};
    const auto sides = RegionFrame::sides(region, 2, 3, wholeDisplay);
    const std::vector<PixelRect> expected{{95, 45, 40, 3}, {95, 72, 40, 3}, {95, 48, 3, 24}, {132, 48, 3, 24}};
    EXPECT_EQ(sides, expected);
    for (const PixelRect& side : RegionFrame::sides(region, 0, 1, wholeDisplay))
        EXPECT_TRUE(side.intersected(region).isEmpty());
}

TEST(RegionFrame, LeavesOutTheSidesWhereTheScreenEnds)
{
    EXPECT_EQ(RegionFrame::sides({0, 0, 30, 20}, 0, 2, wholeDisplay),
        (std::vector<PixelRect>{{0, 20, 32, 2}, {30, 0, 2, 20}}));
    EXPECT_EQ(RegionFrame::sides({970, 480, 30, 20}, 0, 2, wholeDisplay),
        (std::vector<PixelRect>{{968, 478, 32, 2}, {968, 480, 2, 20}}));
    EXPECT_TRUE(RegionFrame::sides(wholeDisplay, 0, 2, wholeDisplay).empty());
}

TEST(RegionFrame, IsOnTheScreenWhileItRecordsAndTakesNoClicks)
{
    const X11Display server;
    const auto before = framesOnScreen(server).size();
    test::RecorderFixture fixture;
    const ScreenSession screen;
    const RegionFrame frame(*fixture.recorder, screen);
    fixture.start();             // the region 1, 2, 30 × 40
    std::vector<SeenBar> during; // the server may answer this connection before it has read the frame's
    ASSERT_TRUE(test::eventually([&] {
        during = framesOnScreen(server);
        return during.size() == before + 6; // four, and the light ones that are not beside the screen
    }));
    for (auto bar = during.begin() + static_cast<std::ptrdiff_t>(before); bar != during.end(); ++bar) {
        EXPECT_TRUE(bar->isOverrideRedirect);
        EXPECT_FALSE(bar->isUnderThePointer);
        EXPECT_TRUE(bar->place.intersected({1, 2, 30, 40}).isEmpty());
    }
    (void)fixture.stop();
    EXPECT_TRUE(test::eventually([&] { return framesOnScreen(server).size() == before; }));
}

TEST(X11Bars, PutsColoursWhereTheScreenHasThem)
{
    X11PixelFormat format;
    format.redMask = 0xFF;
    format.greenMask = 0xFF00;
    format.blueMask = 0xFF0000;
    EXPECT_EQ(pixelOf(0x102030, format), 0x302010U);
    format.redMask = 0xF800;
    format.greenMask = 0x07E0;
    format.blueMask = 0x001F;
    EXPECT_EQ(pixelOf(0xFFFFFF, format), 0xFFFFU);
    EXPECT_EQ(pixelOf(0x800000, format), 16U << 11);
}

} // namespace
} // namespace quillbox
