// Runs on a real X server that the caller starts: see CMakeLists.txt in the folder above.
#include "Capture/X11/X11Stream.h"

#include "StreamFixture.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace quillbox {
namespace {

using test::blue;
using test::green;
using test::red;
using test::white;
using test::withSquare;
using test::X11StreamTest;

// Where the server has XFixes.
class PointerServer : public X11StreamTest { };

TEST_F(PointerServer, DrawsThePointerWithItsHotSpotAtThePosition)
{
    constexpr PixelRect area{50, 60, 40, 30};
    m_screen.fill(area, blue);
    m_screen.setPointer(8, 3, red);
    m_screen.movePointer(70, 75);
    start({50, 60, 40, 30});
    EXPECT_TRUE(shows(withSquare(m_screen.expected(area), {20 - 3, 15 - 3, 8, 8}, red)));
}

TEST_F(PointerServer, FollowsThePointerWithoutATrace)
{
    constexpr PixelRect area{50, 60, 40, 30};
    m_screen.fill(area, white);
    m_screen.setPointer(8, 0, red);
    m_screen.movePointer(500, 500);
    start({50, 60, 40, 30});
    EXPECT_TRUE(shows(m_screen.expected(area)));
    // Across every corner of the region, in it, and out of it again.
    for (const auto& [x, y] : std::vector<std::pair<int, int>>{{46, 56}, {86, 56}, {46, 86}, {86, 86}, {60, 70}}) {
        m_screen.movePointer(x, y);
        EXPECT_TRUE(shows(withSquare(m_screen.expected(area), {x - 50, y - 60, 8, 8}, red)));
    }
    m_screen.movePointer(500, 500);
    EXPECT_TRUE(shows(m_screen.expected(area)));
}

TEST_F(PointerServer, ANewPictureOfThePointerIsSeenWithoutAMove)
{
    constexpr PixelRect area{50, 60, 40, 30};
    m_screen.fill(area, white);
    m_screen.setPointer(8, 0, red);
    m_screen.movePointer(60, 70);
    start({50, 60, 40, 30});
    m_screen.setPointer(5, 1, green);
    EXPECT_TRUE(shows(withSquare(m_screen.expected(area), {9, 9, 5, 5}, green)));
}

TEST_F(PointerServer, AChangeBelowThePointerIsSeenAroundIt)
{
    constexpr PixelRect area{50, 60, 40, 30};
    m_screen.setPointer(8, 0, red);
    m_screen.movePointer(60, 70);
    start({50, 60, 40, 30});
    m_screen.fill({55, 65, 20, 20}, white);
    EXPECT_TRUE(shows(withSquare(m_screen.expected(area), {10, 10, 8, 8}, red)));
    m_screen.fill({62, 72, 1, 1}, blue);
    m_screen.movePointer(500, 500);
    EXPECT_TRUE(shows(m_screen.expected(area)));
}

TEST_F(PointerServer, APointerThatMovesOutsideDeliversNothing)
{
    m_screen.setPointer(8, 0, red);
    m_screen.movePointer(500, 500);
    start({50, 60, 40, 30});
    m_screen.movePointer(510, 500);
    m_screen.movePointer(42, 52); // its last pixel is one short of the region
    m_screen.movePointer(520, 500);
    m_screen.fill({55, 65, 2, 2}, white);
    EXPECT_TRUE(shows(m_screen.expected({50, 60, 40, 30})));
    stop();
    EXPECT_EQ(m_gallery.frames().size(), 2U);
}

// Where the server lacks XFixes.
class PointerlessServer : public X11StreamTest { };

TEST_F(PointerlessServer, DrawsNoPointer)
{
    m_screen.setPointer(8, 0, red);
    m_screen.movePointer(60, 70);
    start({50, 60, 40, 30});
    m_screen.fill({55, 65, 20, 20}, white);
    EXPECT_TRUE(shows(m_screen.expected({50, 60, 40, 30})));
}

} // namespace
} // namespace quillbox
