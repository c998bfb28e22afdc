// Runs on a real Wayland desktop that the caller starts: see CMakeLists.txt beside it.
#include "Capture/Portal/PortalStream.h"

#include "Capture/PipeWire/PipeWireStream.h"
#include "Capture/Portal/ScreenCastPortal.h"
#include "Capture/ScreenSession.h"
#include "Capture/StreamRecorder.h"
#include "Gallery.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <optional>
#include <semaphore>
#include <string>
#include <utility>

namespace quillbox {
namespace {

constexpr CaptureRegion region{11, 13, 67, 41};

RGBAFrame plain(RGBColor color)
{
    Bytes pixels;
    for (std::int64_t pixel = 0; pixel < region.width * region.height; ++pixel)
        pixels.insert(pixels.end(), {color.r, color.g, color.b, 255});
    return RGBAFrame(region.width, region.height, std::move(pixels));
}

const RGBAFrame background = plain(RGBColor(0x21, 0x42, 0x84)); // of the session

/// Has the compositor paint another background.
void paint(const std::string& color)
{
    const std::string command = "swaymsg -q output HEADLESS-1 bg '#" + color + "' solid_color";
    ASSERT_EQ(std::system(command.c_str()), 0) << command; // NOLINT(cert-env33-c): a test's own words
}

/// The open casts of this process, as the portal lists them.
std::string openSessions()
{
    QString sender = QDBusConnection::sessionBus().baseService().mid(1);
    sender.replace('.', '_');
    const auto call = QDBusMessage::createMethodCall("org.freedesktop.portal.Desktop",
        "/org/freedesktop/portal/desktop/session/" + sender, "org.freedesktop.DBus.Introspectable", "Introspect");
    const auto answer = QDBusConnection::sessionBus().call(call);
    return answer.arguments().value(0).toString().toStdString();
}

bool hasOpenSession()
{
    return openSessions().find("<node name=\"quillbox") != std::string::npos;
}

class PortalStreamTest : public testing::Test {
protected:
    test::Gallery m_gallery; // outlives the stream
    std::unique_ptr<CaptureStream> m_stream = std::make_unique<PortalStream>();

    void start() { test::await(m_stream->start(region, m_gallery.sink())); }
};

TEST_F(PortalStreamTest, DeliversTheRegionAtOnce)
{
    start();
    ASSERT_FALSE(m_gallery.frames().empty()) << "the first picture comes before start() has finished";
    EXPECT_EQ(m_gallery.frames().front(), background);
    EXPECT_TRUE(hasOpenSession());
}

TEST_F(PortalStreamTest, FollowsEveryChange)
{
    start();
    paint("ff0000");
    EXPECT_TRUE(m_gallery.shows(plain(RGBColor(255, 0, 0))));
    paint("00ff00");
    EXPECT_TRUE(m_gallery.shows(plain(RGBColor(0, 255, 0))));
    paint("214284");
    EXPECT_TRUE(m_gallery.shows(background));
    const auto times = m_gallery.times();
    for (std::size_t at = 1; at < times.size(); ++at)
        EXPECT_GE(times[at] - times[at - 1], std::chrono::milliseconds(33)) << "at most thirty a second";
}

TEST_F(PortalStreamTest, NothingComesAfterTheStop)
{
    start();
    test::await(m_stream->stop());
    const auto count = m_gallery.frames().size();
    paint("ff0000");
    test::Gallery other;
    PortalStream witness;
    test::await(witness.start(region, other.sink()));
    EXPECT_TRUE(other.shows(plain(RGBColor(255, 0, 0))));
    paint("214284");
    EXPECT_TRUE(other.shows(background));
    EXPECT_EQ(m_gallery.frames().size(), count);
    EXPECT_TRUE(m_gallery.ends().empty());
    test::await(m_stream->stop()); // again
}

TEST_F(PortalStreamTest, StoppingWithoutAStartIsNothing)
{
    test::await(m_stream->stop());
    EXPECT_TRUE(m_gallery.frames().empty());
}

TEST_F(PortalStreamTest, MayBeDestroyedAtAnyMomentOfItsStart)
{
    for (int attempt = 0; attempt < 60; ++attempt) {
        auto stream = std::make_unique<PortalStream>();
        test::Outcome<bool> outcome;
        const auto following = test::follow(stream->start(region, m_gallery.sink()), outcome);
        const QDeadlineTimer moment(attempt * 2); // milliseconds: any of them is as good as another
        (void)test::eventually([&] { return outcome.isDone || moment.hasExpired(); });
        const bool wasFaster = outcome.isDone;
        stream.reset();
        const auto count = m_gallery.frames().size();
        ASSERT_TRUE(test::eventually([&] { return outcome.isDone; })) << attempt;
        EXPECT_EQ(m_gallery.frames().size(), count);
        if (wasFaster)
            continue;
        try {
            if (outcome.error)
                std::rethrow_exception(outcome.error);
        } catch (const CaptureError& error) {
            EXPECT_EQ(error.reason(), CaptureError::Reason::Stopped) << error.what();
        }
    }
    EXPECT_TRUE(m_gallery.ends().empty());
    EXPECT_TRUE(test::eventually([] { return !hasOpenSession(); })) << openSessions();
}

TEST_F(PortalStreamTest, RecordsOnTheCastThatTheRegionWasSelectedOn)
{
    ScreenSession screen;
    const auto first = test::await(screen.openCast());
    EXPECT_EQ(first.picture.width(), 1280) << "all of the monitor";
    EXPECT_EQ(first.picture.height(), 720);
    const auto sessions = openSessions();
    screen.selectOnCast({640, 360}, nullptr); // the region is in these
    m_stream = screen.makeStream();
    start();
    EXPECT_EQ(openSessions(), sessions) << "no second cast";
    EXPECT_EQ(m_gallery.frames().front(), background);
    paint("ff0000");
    EXPECT_TRUE(m_gallery.shows(plain(RGBColor(255, 0, 0))));
    paint("214284");
    EXPECT_TRUE(m_gallery.shows(background));
    test::await(m_stream->stop());
    EXPECT_TRUE(test::eventually([] { return !hasOpenSession(); })) << openSessions();
}

TEST_F(PortalStreamTest, TakesOverACastOnce)
{
    ScreenSession screen;
    (void)test::await(screen.openCast());
    const auto sessions = openSessions();
    m_stream = screen.makeStream();
    start();
    test::await(m_stream->stop());
    EXPECT_TRUE(test::eventually([] { return !hasOpenSession(); })) << openSessions();
    m_stream = screen.makeStream();
    start();
    EXPECT_NE(openSessions(), sessions) << "a cast of its own";
}

TEST_F(PortalStreamTest, ACastOnWhichNothingIsSelectedEnds)
{
    ScreenSession screen;
    (void)test::await(screen.openCast());
    screen.closeCast();
    EXPECT_TRUE(test::eventually([] { return !hasOpenSession(); })) << openSessions();
}

TEST_F(PortalStreamTest, ACastEndsWithItsSession)
{
    auto screen = std::make_unique<ScreenSession>();
    (void)test::await(screen->openCast());
    screen.reset();
    EXPECT_TRUE(test::eventually([] { return !hasOpenSession(); })) << openSessions();
}

TEST_F(PortalStreamTest, AStopDoesNotWaitForWhatTheSourceWaitsFor)
{
    ScreenCastPortal portal;
    const ScreenCast cast = test::await(portal.open());
    PipeWireStream::Source source;
    source.remote = test::await(portal.openRemote());
    source.node = cast.node;
    source.connect = [] {
    };
    source.repaint = [] { // until a picture comes
        paint("00ff00");
        paint("214284");
    };
    std::binary_semaphore asked{0};
    std::binary_semaphore stopped{0};
    bool isStopped = false;
    source.points = [&](PixelSize) {
        asked.release();
        isStopped = stopped.try_acquire_for(test::patience);
        return std::optional<PixelSize>();
    };
    source.stop = [&] {
        stopped.release();
    };
    {
        PipeWireStream stream(std::move(source), region, m_gallery.sink());
        asked.acquire();
    }
    EXPECT_TRUE(isStopped);
}

TEST_F(PortalStreamTest, NothingStaysOpenAfterTwentyRecordings)
{
    const auto openFiles = [] {
        return std::distance(
            std::filesystem::directory_iterator("/proc/self/fd"), std::filesystem::directory_iterator());
    };
    const auto record = [] {
        StreamRecorder recorder([] { return std::make_unique<PortalStream>(); });
        test::await(recorder.start(region));
        EXPECT_TRUE(test::eventually([&] { return recorder.frameCount() >= 2; }));
        EXPECT_GE(test::await(recorder.stop()).frames().size(), 2U);
    };
    record(); // what the libraries open once, they keep
    const auto before = openFiles();
    for (int i = 0; i < 20; ++i)
        record();
    EXPECT_TRUE(test::eventually([&] { return openFiles() <= before; })) << openFiles() << " instead of " << before;
    EXPECT_TRUE(test::eventually([] { return !hasOpenSession(); })) << openSessions();
}

} // namespace
} // namespace quillbox

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
