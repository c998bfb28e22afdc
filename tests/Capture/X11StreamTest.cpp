// Runs on a real X server that the caller starts: see CMakeLists.txt beside it for the servers and what runs on each.
// One long file: many short suites share one fixture.
#include "Capture/X11Stream.h"

#include "Capture/StreamRecorder.h"
#include "X11/Gallery.h"
#include "X11/TestScreen.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QSignalSpy>

#include <sys/types.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace quillbox {
namespace {

constexpr RGBColor black{0, 0, 0};
constexpr RGBColor white{255, 255, 255};
constexpr RGBColor red{255, 0, 0};
constexpr RGBColor green{0, 255, 0};
constexpr RGBColor blue{0, 0, 255};

PixelRect pixelsOf(CaptureRegion region)
{
    return {static_cast<std::int32_t>(region.x), static_cast<std::int32_t>(region.y),
        static_cast<std::int32_t>(region.width), static_cast<std::int32_t>(region.height)};
}

/// A picture with a square drawn over it.
RGBAFrame withSquare(const RGBAFrame& frame, PixelRect square, RGBColor color)
{
    Bytes pixels(frame.pixels());
    const PixelRect extent{0, 0, static_cast<std::int32_t>(frame.width()), static_cast<std::int32_t>(frame.height())};
    const PixelRect visible = square.intersected(extent);
    for (std::int32_t y = visible.y; y < visible.y + visible.height; ++y) {
        for (std::int32_t x = visible.x; x < visible.x + visible.width; ++x) {
            const auto offset = static_cast<std::size_t>((y * frame.width() + x) * 4);
            pixels[offset] = color.r;
            pixels[offset + 1] = color.g;
            pixels[offset + 2] = color.b;
        }
    }
    return RGBAFrame(frame.width(), frame.height(), std::move(pixels));
}

/// The process of the X server, as the session script names it.
pid_t serverProcess()
{
    const char* const text = std::getenv("XSERVER_PID");
    if (text == nullptr)
        throw std::runtime_error("XSERVER_PID is not set");
    return static_cast<pid_t>(std::atoi(text));
}

void run(const std::string& command)
{
    ASSERT_EQ(std::system(command.c_str()), 0) << command; // NOLINT(cert-env33-c): a test's own words
}

/// An X11 stream whose pictures a gallery keeps too: the test learns from it what the recorder has got.
class WatchedStream : public CaptureStream {
public:
    explicit WatchedStream(test::Gallery& gallery)
        : m_gallery(gallery)
    {
    }
    QCoro::Task<> start(CaptureRegion region, FrameSink sink) override
    {
        sink.frame = [kept = m_gallery.sink().frame, passedOn = std::move(sink.frame)](
                         const RGBAFrame& frame, CaptureClock::time_point shownAt) {
            passedOn(frame, shownAt);
            kept(frame, shownAt);
        };
        return m_stream.start(region, std::move(sink));
    }
    QCoro::Task<> stop() override { return m_stream.stop(); }

private:
    test::Gallery& m_gallery;
    X11Stream m_stream;
};

class X11StreamTest : public testing::Test {
protected:
    /// Colours at the region's corners and in its middle, and others just outside each edge.
    void paintAround(CaptureRegion region)
    {
        const PixelRect inner = pixelsOf(region);
        m_screen.fill({inner.x - 3, inner.y - 3, inner.width + 6, inner.height + 6}, blue);
        m_screen.fill(inner, white);
        m_screen.fill({inner.x, inner.y, 3, 2}, red);
        m_screen.fill({inner.x + inner.width - 2, inner.y, 2, 3}, green);
        m_screen.fill({inner.x, inner.y + inner.height - 1, 1, 1}, black);
        m_screen.fill({inner.x + inner.width - 1, inner.y + inner.height - 1, 1, 1}, blue);
        m_screen.fill({inner.x + inner.width / 2, inner.y + inner.height / 3, 7, 5}, RGBColor(255, 255, 0));
    }
    void start(CaptureRegion region) { test::await(m_stream.start(region, m_gallery.sink())); }
    void stop() { test::await(m_stream.stop()); }
    [[nodiscard]] bool shows(const RGBAFrame& expected) const { return m_gallery.shows(expected); }

    test::TestScreen m_screen;
    test::Gallery m_gallery; // outlives the stream
    X11Stream m_stream;
};

// What every server can do.
class AnyServer : public X11StreamTest { };

TEST_F(AnyServer, DeliversTheExactPixelsOfTheRegionAtOnce)
{
    constexpr CaptureRegion region{101, 53, 67, 41};
    paintAround(region);
    start(region);
    EXPECT_FALSE(m_gallery.frames().empty()) << "the first picture comes before start() has finished";
    EXPECT_TRUE(shows(m_screen.expected(pixelsOf(region))));
}

TEST_F(AnyServer, FollowsEveryChange)
{
    constexpr CaptureRegion region{10, 20, 64, 48};
    start(region);
    for (const RGBColor color : {red, green, blue, white}) {
        m_screen.fill({12, 22, 5, 6}, color); // a small part
        EXPECT_TRUE(shows(m_screen.expected(pixelsOf(region))));
        m_screen.fill({0, 0, 200, 200}, color); // more than the whole
        EXPECT_TRUE(shows(m_screen.expected(pixelsOf(region))));
        m_screen.fill({70, 60, 40, 40}, black); // over a corner
        EXPECT_TRUE(shows(m_screen.expected(pixelsOf(region))));
    }
}

TEST_F(AnyServer, ARegionOfOddWidthFollowsToo)
{
    constexpr CaptureRegion region{3, 5, 33, 17};
    start(region);
    m_screen.fill({4, 6, 31, 1}, red);
    EXPECT_TRUE(shows(m_screen.expected(pixelsOf(region))));
    m_screen.fill({35, 21, 1, 1}, green);
    EXPECT_TRUE(shows(m_screen.expected(pixelsOf(region))));
}

TEST_F(AnyServer, AStillScreenDeliversNothing)
{
    constexpr CaptureRegion region{100, 100, 50, 50};
    m_screen.fill({0, 0, 300, 300}, blue);
    start(region);
    // Changes beside the region, on one side and on both at once; then one within: that alone is delivered.
    for (int i = 0; i < 10; ++i) {
        m_screen.fill({20, 100, 10, 10}, i % 2 == 0 ? red : green);
        m_screen.fill({{20, 120, 10, 10}, {200, 120, 10, 10}}, i % 2 == 0 ? red : green);
    }
    m_screen.fill({110, 110, 5, 5}, white);
    EXPECT_TRUE(shows(m_screen.expected(pixelsOf(region))));
    stop();
    EXPECT_EQ(m_gallery.frames().size(), 2U);
}

TEST_F(AnyServer, MomentsLieOnTicksAndNeverGoBack)
{
    constexpr CaptureRegion region{0, 0, 20, 20};
    start(region);
    for (int i = 0; i < 10; ++i) {
        m_screen.fill({0, 0, 20, 20}, i % 2 == 0 ? red : green);
        ASSERT_TRUE(shows(m_screen.expected(pixelsOf(region))));
    }
    const auto times = m_gallery.times();
    for (std::size_t i = 1; i < times.size(); ++i) {
        EXPECT_GT(times[i], times[i - 1]);
        const auto nanoseconds = std::chrono::nanoseconds(times[i] - times.front()).count();
        EXPECT_LT((nanoseconds * 30 + 30) % 1'000'000'000, 31) << i; // a thirtieth of a second, rounded down
    }
}

TEST_F(AnyServer, CutsTheRegionAtTheDisplay)
{
    m_screen.fill({0, 0, 10, 10}, red);
    start({-5, -7, 20, 30});
    EXPECT_TRUE(shows(m_screen.expected({0, 0, 15, 23})));
}

TEST_F(AnyServer, ARegionOutsideTheDisplayIsAClearError)
{
    try {
        start({100'000, 0, 10, 10});
        FAIL() << "it must not start";
    } catch (const CaptureError& error) {
        EXPECT_EQ(error.reason(), CaptureError::Reason::OutsideDisplay);
        EXPECT_STREQ(error.what(), "The region lies outside the main display, which is 1280×720");
    }
    stop();
    EXPECT_TRUE(m_gallery.frames().empty());
}

TEST_F(AnyServer, NothingIsDeliveredAfterTheStop)
{
    start({0, 0, 20, 20});
    stop();
    const auto count = m_gallery.frames().size();
    m_screen.fill({0, 0, 20, 20}, red);
    test::Gallery other;
    X11Stream later; // that one sees the change; the stopped one had as much time
    test::await(later.start({0, 0, 20, 20}, other.sink()));
    m_screen.fill({0, 0, 20, 20}, green);
    EXPECT_TRUE(other.shows(m_screen.expected({0, 0, 20, 20})));
    EXPECT_EQ(m_gallery.frames().size(), count);
    EXPECT_TRUE(m_gallery.ends().empty());
    stop(); // again
}

TEST_F(AnyServer, StoppingWithoutAStartIsNothing)
{
    stop();
    EXPECT_TRUE(m_gallery.frames().empty());
}

TEST_F(AnyServer, ARecorderReturnsASteadyList)
{
    constexpr CaptureRegion region{0, 0, 20, 20};
    StreamRecorder recorder([this] { return std::make_unique<WatchedStream>(m_gallery); });
    test::await(recorder.start(region));
    m_screen.fill({0, 0, 20, 20}, red);
    ASSERT_TRUE(shows(m_screen.expected(pixelsOf(region))));
    const auto enough = std::max<std::int64_t>(recorder.frameCount() + 1, 10); // the red one for a tick at least
    ASSERT_TRUE(test::eventually([&] { return recorder.frameCount() >= enough; }));
    const auto frames = test::await(recorder.stop());
    EXPECT_GE(std::ssize(frames), enough);
    EXPECT_EQ(frames.back(), m_screen.expected(pixelsOf(region)));
}

TEST_F(AnyServer, AStreamMayBeDestroyedWhileItStarts)
{
    for (int i = 0; i < 20; ++i) {
        auto stream = std::make_unique<X11Stream>();
        auto starting = stream->start({0, 0, 20, 20}, m_gallery.sink());
        stream.reset();
        const auto count = m_gallery.frames().size();
        try {
            test::await(std::move(starting)); // it may have been faster
        } catch (const CaptureError& error) {
            EXPECT_EQ(error.reason(), CaptureError::Reason::Stopped);
        }
        EXPECT_EQ(m_gallery.frames().size(), count);
    }
    EXPECT_TRUE(m_gallery.ends().empty());
}

TEST_F(AnyServer, NoFileStaysOpenAfterARecording)
{
    const auto openFiles = [] {
        const std::filesystem::directory_iterator files("/proc/self/fd");
        return std::distance(begin(files), end(files));
    };
    const auto record = [&] {
        X11Stream stream;
        test::await(stream.start({0, 0, 20, 20}, m_gallery.sink()));
        test::await(stream.stop());
    };
    record(); // what the libraries open once
    const auto before = openFiles();
    for (int i = 0; i < 5; ++i)
        record();
    EXPECT_EQ(openFiles(), before);
}

// Where the server has 8 bits a channel.
class FullColorServer : public X11StreamTest { };

TEST_F(FullColorServer, EveryValueOfAChannelComesThrough)
{
    for (std::int32_t value = 0; value < 256; ++value) {
        const auto channel = static_cast<std::uint8_t>(value);
        m_screen.fill({value, 0, 1, 1}, RGBColor(channel, 7, 99));
        m_screen.fill({value, 1, 1, 1}, RGBColor(7, channel, 99));
        m_screen.fill({value, 2, 1, 1}, RGBColor(7, 99, channel));
    }
    start({0, 0, 256, 3});
    EXPECT_TRUE(shows(m_screen.expected({0, 0, 256, 3})));
}

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
    RGBAFrame expected(5, 4, m_screen.expected({500, 500, 5, 4}).pixels());
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
    m_screen.fill(area, white);                                             // the server has cleared the windows
    RGBAFrame expected(80, 40, m_screen.expected({0, 0, 80, 40}).pixels()); // nothing was drawn there: black
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

// Where a compositor draws the screen. It draws some time after it was told to, and picom 9 sometimes forgets a window,
// at once or after it has shown it: what the screen shows counts, for as long as it does.
TEST(ComposedServer, TheStreamShowsWhatTheCompositorDraws)
{
    constexpr PixelRect area{10, 20, 64, 48};
    constexpr int wanted = 10;
    test::Gallery gallery;
    X11Stream stream;
    test::await(stream.start({10, 20, 64, 48}, gallery.sink()));
    int shown = 0;
    for (int attempt = 1; shown < wanted && attempt < 60; ++attempt) {
        test::TestScreen screen;
        screen.fill({0, 0, 300, 300}, blue);
        screen.fill({12, 22, 9, 9}, RGBColor(static_cast<std::uint8_t>(attempt), 0, 255)); // never the same twice
        const RGBAFrame expected = screen.expected(area);
        if (!test::eventually([&] { return screen.screenshot(area) == expected; }, std::chrono::seconds(2)))
            continue;
        bool isSeen = false;
        ASSERT_TRUE(test::eventually([&] {
            isSeen = gallery.latestIs(expected);
            return isSeen || screen.screenshot(area) != expected;
        })) << "the screen shows a picture that the stream does not";
        if (isSeen)
            ++shown;
    }
    EXPECT_EQ(shown, wanted);
}

// Where the server may be stopped for a while.
class HungServer : public X11StreamTest { };

TEST_F(HungServer, AStopDoesNotWaitForIt)
{
    start({0, 0, 20, 20});
    ASSERT_EQ(kill(serverProcess(), SIGSTOP), 0);
    stop();
    ASSERT_EQ(kill(serverProcess(), SIGCONT), 0);
    EXPECT_FALSE(m_gallery.frames().empty());
    EXPECT_TRUE(m_gallery.ends().empty());
}

TEST_F(HungServer, ADestructionDoesNotWaitForIt)
{
    auto stream = std::make_unique<X11Stream>();
    test::await(stream->start({0, 0, 20, 20}, m_gallery.sink()));
    ASSERT_EQ(kill(serverProcess(), SIGSTOP), 0);
    stream.reset();
    ASSERT_EQ(kill(serverProcess(), SIGCONT), 0);
}

// Where the server may be killed.
TEST(DyingServer, TheFramesSoFarAreKept)
{
    test::TestScreen screen;
    screen.fill({0, 0, 20, 20}, red);
    StreamRecorder recorder([] { return std::make_unique<X11Stream>(); });
    QSignalSpy interruptions(&recorder, &StreamRecorder::interrupted);
    test::await(recorder.start({0, 0, 20, 20}));
    ASSERT_TRUE(test::eventually([&] { return recorder.frameCount() >= 3; }));
    ASSERT_EQ(kill(serverProcess(), SIGKILL), 0);
    ASSERT_TRUE(test::eventually([&] { return interruptions.count() > 0; }));
    EXPECT_EQ(interruptions.at(0).at(0).toString(), QStringLiteral("The connection to the X11 display was lost"));
    EXPECT_TRUE(recorder.isRecording());
    const auto count = recorder.frameCount();
    const auto frames = test::await(recorder.stop());
    EXPECT_EQ(std::ssize(frames), count);
    EXPECT_GE(frames.size(), 3U);
    EXPECT_EQ(frames.back(), screen.expected({0, 0, 20, 20}));
    EXPECT_EQ(interruptions.count(), 1);
    EXPECT_FALSE(recorder.isRecording());
}

/// The extension that the server must not have, so that no run tests something else than it says.
bool lacks(const char* extension)
{
    return extension == nullptr || !test::TestScreen().hasExtension(extension);
}

bool hasDepth(const char* depth)
{
    return depth == nullptr || test::TestScreen().depth() == std::atoi(depth);
}

} // namespace
} // namespace quillbox

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    if (!quillbox::lacks(std::getenv("TEST_WITHOUT_EXTENSION")) || !quillbox::hasDepth(std::getenv("TEST_AT_DEPTH"))) {
        std::fputs("this is not the server that the test is for\n", stderr);
        return EXIT_FAILURE;
    }
    return RUN_ALL_TESTS();
}
