#include "App/Desktop/Recording/PanelGuard.h"

#include "Capture/ScreenSession.h"
#include "RecorderFixture.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QScreen>
#include <QTimer>
#include <QWidget>

#include <vector>

namespace quillbox {
namespace {

using std::chrono_literals::operator""h;
using std::chrono_literals::operator""ms;
using Numbers = std::vector<int>;

/// A panel of 20 × 20 points, and a recorder of the region 1, 2, 30 × 40.
class PanelGuardTest : public testing::Test {
protected:
    PanelGuardTest()
    {
        m_panel.setWindowFlag(Qt::FramelessWindowHint);
        m_panel.resize(20, 20);
        new PanelGuard(*m_fixture.recorder, m_screen, m_panel, {0ms, 0ms}); // the panel owns it
    }

    /// Places of the main display.
    void move(int x, int y) { m_panel.move(QGuiApplication::primaryScreen()->geometry().topLeft() + QPoint(x, y)); }
    void show(int x, int y)
    {
        move(x, y);
        m_panel.show();
    }
    /// The programs below the panel have had the time to repaint.
    static void settle(std::chrono::milliseconds time = 0ms)
    {
        bool isOver = false;
        QTimer::singleShot(time, qGuiApp, [&isOver] { isOver = true; });
        ASSERT_TRUE(test::eventually([&isOver] { return isOver; }));
    }
    void deliver(std::uint8_t number)
    {
        m_fixture.deliver(number);
        m_fixture.tick();
    }
    /// The pictures of the clip, one a tick.
    Numbers stop() { return test::numbers(m_fixture.stop()); }

    test::RecorderFixture m_fixture;
    ScreenSession m_screen;
    QWidget m_panel;
};

constexpr int outside = 200;

TEST_F(PanelGuardTest, HoldsNothingWhenThePanelIsShownBesideTheRegion)
{
    m_fixture.recordTwo();
    show(outside, outside);
    deliver(3);
    EXPECT_EQ(stop(), (Numbers{1, 2, 3}));
}

TEST_F(PanelGuardTest, HoldsThePictureWhenAPanelWithAFrameIsShownWhereverItGoes)
{
    m_panel.setWindowFlag(Qt::FramelessWindowHint, false);
    m_fixture.recordTwo();
    show(outside, outside); // the window system has yet to say where
    deliver(3);
    EXPECT_EQ(stop(), (Numbers{1, 2, 2}));
}

TEST_F(PanelGuardTest, GoesOnOnceThePanelTurnsOutToBeBesideTheRegion)
{
    m_panel.setWindowFlag(Qt::FramelessWindowHint, false);
    m_fixture.recordTwo();
    show(outside, outside);
    settle();
    deliver(3);
    EXPECT_EQ(stop(), (Numbers{1, 2, 3}));
}

TEST_F(PanelGuardTest, HoldsThePictureAsLongAsThePanelCoversAPartOfTheRegion)
{
    m_fixture.recordTwo();
    show(30, 41); // one point of it, at the corner
    settle();
    deliver(3);
    settle();
    deliver(4);
    EXPECT_EQ(stop(), (Numbers{1, 2, 2, 2}));
}

TEST_F(PanelGuardTest, APanelThatOnlyTouchesTheRegionIsBesideIt)
{
    m_fixture.recordTwo();
    show(31, 42);
    settle();
    deliver(3);
    EXPECT_EQ(stop(), (Numbers{1, 2, 3}));
}

TEST_F(PanelGuardTest, HoldsThePictureWhenThePanelMovesOrGrowsIntoTheRegion)
{
    m_fixture.recordTwo();
    show(0, 50);
    settle();
    move(0, 40);
    deliver(3);
    move(40, 0);
    settle();
    deliver(4);
    m_panel.setGeometry(m_panel.geometry().adjusted(-20, 0, 0, 0));
    deliver(5);
    EXPECT_EQ(stop(), (Numbers{1, 2, 2, 4, 4}));
}

TEST_F(PanelGuardTest, HoldsThePictureUntilTheProgramsBelowHaveRepainted)
{
    m_fixture.recordTwo();
    show(0, 0);
    settle();
    m_panel.hide();
    deliver(3); // may still show the panel
    deliver(4);
    settle();
    m_fixture.tick();
    deliver(5);
    EXPECT_EQ(stop(), (Numbers{1, 2, 2, 2, 4, 5})) << "the latest picture that arrived meanwhile, then what follows";
}

TEST_F(PanelGuardTest, HoldsThePictureUntilTheRegionRests)
{
    test::RecorderFixture fixture; // whose picture no other guard releases
    QWidget panel;
    panel.setWindowFlag(Qt::FramelessWindowHint);
    panel.setGeometry(m_panel.geometry());
    new PanelGuard(*fixture.recorder, m_screen, panel, {1ms, 1h}); // the panel owns it
    fixture.recordTwo();
    panel.move(QGuiApplication::primaryScreen()->geometry().topLeft());
    panel.show();
    panel.hide();
    fixture.deliver(3); // it fades
    settle(50ms);
    fixture.deliver(4);
    settle();
    fixture.tick(); // which nothing disturbs
    ASSERT_TRUE(test::eventually([&] { return fixture.recorder->restWhileHeld() == 0ms; })) << "it has ended";
    fixture.deliver(5);
    fixture.tick();
    EXPECT_EQ(test::numbers(fixture.stop()), (Numbers{1, 2, 2, 5}));
}

TEST_F(PanelGuardTest, GoesOnHoldingWhenThePanelReturnsBeforeThat)
{
    m_fixture.recordTwo();
    show(0, 0);
    settle();
    m_panel.hide();
    m_panel.show();
    settle();
    deliver(3);
    EXPECT_EQ(stop(), (Numbers{1, 2, 2}));
}

TEST_F(PanelGuardTest, HoldsThePictureWhereARecordingBeginsBelowThePanel)
{
    show(0, 0);
    settle();
    m_fixture.recordTwo();
    EXPECT_EQ(stop(), (Numbers{1, 1})) << "what the region showed before";
}

TEST_F(PanelGuardTest, LetsARecordingBeginBesideThePanel)
{
    show(outside, outside);
    settle();
    m_fixture.recordTwo();
    EXPECT_EQ(stop(), (Numbers{1, 2}));
}

TEST_F(PanelGuardTest, LeavesTheNextRecordingAloneOnceThePanelIsGone)
{
    m_fixture.recordTwo();
    show(0, 0);
    (void)stop();
    m_panel.hide();
    settle();
    m_fixture.recordTwo();
    EXPECT_EQ(stop(), (Numbers{1, 2}));
}

} // namespace
} // namespace quillbox
