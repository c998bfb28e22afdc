// Runs on a real X server that the caller starts: see CMakeLists.txt beside it for the servers and what runs on each.
#include "Capture/X11/X11Stream.h"

#include "Capture/StreamRecorder.h"
#include "StreamFixture.h"

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

namespace quillbox {
namespace {

using test::black;
using test::blue;
using test::green;
using test::pixelsOf;
using test::red;
using test::WatchedStream;
using test::white;
using test::X11StreamTest;

/// The process of the X server, as the session script names it.
pid_t serverProcess()
{
    const char* const text = std::getenv("XSERVER_PID");
    if (text == nullptr)
        throw std::runtime_error("XSERVER_PID is not set");
    return static_cast<pid_t>(std::atoi(text));
}

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

TEST_F(AnyServer, DeliversAPictureOnDemandThoughNothingHasChanged)
{
    constexpr CaptureRegion region{100, 100, 50, 50};
    start(region);
    for (std::size_t count = 1; count < 4; ++count) {
        const auto moment = CaptureClock::now();
        ASSERT_TRUE(m_stream.requestPicture(moment));
        ASSERT_TRUE(test::eventually([&] { return m_gallery.frames().size() > count; }));
        EXPECT_GE(m_gallery.times().back(), moment);
    }
    stop();
    EXPECT_EQ(m_gallery.frames().size(), 4U) << "one each";
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
    const auto frames = test::await(recorder.stop()).frames();
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
    const auto frames = test::await(recorder.stop()).frames();
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
