// Runs on a real X server that the caller starts: see CMakeLists.txt in the folder above.
#include "Capture/X11/X11Stream.h"

#include "StreamFixture.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace quillbox {
namespace {

using test::black;
using test::blue;
using test::green;
using test::red;
using test::white;
using test::withSquare;
using test::X11StreamTest;

void run(const std::string& command)
{
    ASSERT_EQ(std::system(command.c_str()), 0) << command; // NOLINT(cert-env33-c): a test's own words
}

// Where the resources say 192 dots an inch.
class DenseServer : public X11StreamTest {
protected:
    DenseServer() { m_screen.setResources("Xft.antialias:\t1\nXft.dpi:\t192\n"); }
    ~DenseServer() override { m_screen.setResources(""); }
};

TEST_F(DenseServer, OnePointIsOnePixelMadeOfFour)
{
    m_screen.fill({20, 40, 2, 2}, white);  // the point (10, 20)
    m_screen.fill({22, 40, 1, 2}, red);    // the left half of the next one
    m_screen.fill({28, 46, 2, 2}, green);  // the point (14, 23), the region's last
    m_screen.fill({30, 48, 20, 20}, blue); // beyond
    start({10, 20, 5, 4});
    ASSERT_FALSE(m_gallery.frames().empty());
    RGBAFrame expected(5, 4, Bytes(m_screen.expected({500, 500, 5, 4}).pixels()));
    expected = withSquare(expected, {0, 0, 1, 1}, white);
    expected = withSquare(expected, {1, 0, 1, 1}, RGBColor(127, 0, 0)); // the mean, truncated
    expected = withSquare(expected, {4, 3, 1, 1}, green);
    EXPECT_TRUE(shows(expected));
}

TEST_F(DenseServer, TheDisplayHasHalfAsManyPoints)
{
    start({0, 0, 5000, 5000});
    ASSERT_FALSE(m_gallery.frames().empty());
    EXPECT_EQ(m_gallery.frames().front().width(), 640);
    EXPECT_EQ(m_gallery.frames().front().height(), 360);
}

// Where a second monitor, on the right, is the primary one.
class TwoMonitorServer : public X11StreamTest {
protected:
    TwoMonitorServer()
    {
        run("xrandr --setmonitor left 640/169x720/190+0+0 none && xrandr --setmonitor '*right' "
            "640/169x720/190+640+0 screen");
    }
    ~TwoMonitorServer() override { run("xrandr --delmonitor left --delmonitor right"); }
};

TEST_F(TwoMonitorServer, RecordsThePrimaryMonitor)
{
    m_screen.fill({0, 0, 640, 720}, red);
    m_screen.fill({640, 0, 3, 3}, green);
    start({0, 0, 30, 20});
    EXPECT_TRUE(shows(m_screen.expected({640, 0, 30, 20})));
}

TEST_F(TwoMonitorServer, CutsTheRegionAtThePrimaryMonitor)
{
    m_screen.fill({0, 0, 640, 720}, red);
    start({-10, 700, 5000, 50});
    EXPECT_TRUE(shows(m_screen.expected({640, 700, 640, 20})));
}

TEST_F(TwoMonitorServer, PrefersTheMonitorOfThePrimaryOutputAsToolkitsDo)
{
    run("xrandr --delmonitor right && xrandr --setmonitor '*right' 640/169x720/190+640+0 none && "
        "xrandr --delmonitor left && xrandr --setmonitor left 640/169x720/190+0+0 screen");
    m_screen.fill({0, 0, 1280, 720}, red);
    m_screen.fill({0, 0, 3, 3}, green);
    start({0, 0, 30, 20});
    EXPECT_TRUE(shows(m_screen.expected({0, 0, 30, 20})));
}

// Where the screen can become smaller.
class ShrinkingServer : public X11StreamTest {
protected:
    ShrinkingServer() { run("xrandr --newmode half 0 640 0 0 640 360 0 0 360 && xrandr --addmode screen half"); }
    ~ShrinkingServer() override
    {
        run("xrandr --output screen --mode 1280x720 && xrandr --delmode screen half && xrandr --rmmode half");
    }
};

TEST_F(ShrinkingServer, WhatLeavesTheScreenIsBlack)
{
    constexpr PixelRect area{600, 340, 80, 40};
    m_screen.fill(area, white);
    start({600, 340, 80, 40});
    EXPECT_TRUE(shows(m_screen.expected(area)));
    run("xrandr --output screen --mode half");
    m_screen.fill(area, white);                                                    // the server has cleared the windows
    RGBAFrame expected(80, 40, Bytes(m_screen.expected({0, 0, 80, 40}).pixels())); // nothing was drawn there: black
    expected = withSquare(expected, {0, 0, 40, 20}, white);
    EXPECT_TRUE(shows(expected)) << "the size stays, the rest is black";

    m_screen.fill({610, 350, 5, 5}, red); // it goes on
    EXPECT_TRUE(shows(withSquare(expected, {10, 10, 5, 5}, red)));

    run("xrandr --output screen --mode 1280x720");
    m_screen.fill(area, green);
    EXPECT_TRUE(shows(m_screen.expected(area)));
    EXPECT_TRUE(m_gallery.ends().empty());
}

TEST_F(ShrinkingServer, ARegionThatLeavesTheScreenIsAllBlack)
{
    m_screen.fill({700, 400, 80, 40}, white);
    start({700, 400, 80, 40});
    run("xrandr --output screen --mode half");
    EXPECT_TRUE(shows(m_screen.expected({0, 0, 80, 40})));
    EXPECT_TRUE(m_gallery.ends().empty());
}

} // namespace
} // namespace quillbox
