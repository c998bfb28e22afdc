#include "Views/PanelPlacement.h"
#include "support/QtTests.h"

#include <QTest>

namespace quillbox {
namespace {

constexpr QRect screen(0, 0, 1920, 1080);
constexpr QRect belowATopBar(0, 28, 1920, 1052);
constexpr QRect aboveABottomBar(0, 0, 1920, 1040);
constexpr QSize panel(384, 500);

class PanelPlacementTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void hangsBelowAnIconInATopBar();
    void standsAboveAnIconInABottomBar();
    void staysOnTheScreenBesideAnIconInTheCorner();
    void staysOnTheScreenBesideAnIconInASideBar();
    void staysOnASecondScreen();
    void takesTheTopRightCornerWithoutAnIcon();
    void takesTheBottomRightCornerWithoutAnIconAboveABottomBar();
    void takesTheTopRightCornerOfAScreenWithoutBars();
    void startsAtTheTopLeftWhenThereIsNoRoom();
    void alwaysLiesOnTheScreenIfItFits();
};

void PanelPlacementTest::hangsBelowAnIconInATopBar()
{
    QCOMPARE(PanelPlacement::place(panel, QRect(1000, 2, 24, 24), belowATopBar, screen),
        QRect(QPoint(1011 - 192, 36), panel)); // an icon that ends above the bar's end
}

void PanelPlacementTest::standsAboveAnIconInABottomBar()
{
    QCOMPARE(PanelPlacement::place(panel, QRect(1000, 1048, 24, 24), aboveABottomBar, screen),
        QRect(QPoint(1011 - 192, 1032 - 500), panel));
}

void PanelPlacementTest::staysOnTheScreenBesideAnIconInTheCorner()
{
    const QRect placed = PanelPlacement::place(panel, QRect(1894, 2, 24, 24), belowATopBar, screen);
    QCOMPARE(placed.right(), 1920 - PanelPlacement::gap - 1);
}

void PanelPlacementTest::staysOnTheScreenBesideAnIconInASideBar()
{
    const QRect available(60, 0, 1860, 1080);
    const QRect placed = PanelPlacement::place(panel, QRect(10, 1000, 40, 40), available, screen);
    QCOMPARE(placed.left(), 68);
    QVERIFY(available.contains(placed));
}

void PanelPlacementTest::staysOnASecondScreen()
{
    const QRect second(1920, 0, 1280, 1024);
    const QRect available(1920, 24, 1280, 1000);
    const QRect placed = PanelPlacement::place(panel, QRect(1925, 2, 22, 22), available, second);
    QVERIFY(available.contains(placed));
    QCOMPARE(placed.left(), 1928);
}

void PanelPlacementTest::takesTheTopRightCornerWithoutAnIcon()
{
    QCOMPARE(PanelPlacement::place(panel, QRect(), belowATopBar, screen), QRect(QPoint(1528, 36), panel));
}

void PanelPlacementTest::takesTheBottomRightCornerWithoutAnIconAboveABottomBar()
{
    QCOMPARE(PanelPlacement::place(panel, QRect(), aboveABottomBar, screen), QRect(QPoint(1528, 532), panel));
}

void PanelPlacementTest::takesTheTopRightCornerOfAScreenWithoutBars()
{
    QCOMPARE(PanelPlacement::place(panel, QRect(), screen, screen), QRect(QPoint(1528, 8), panel));
}

void PanelPlacementTest::startsAtTheTopLeftWhenThereIsNoRoom()
{
    const QRect tiny(0, 0, 320, 240);
    QCOMPARE(PanelPlacement::place(panel, QRect(300, 0, 16, 16), tiny, tiny).topLeft(), QPoint(8, 8));
}

void PanelPlacementTest::alwaysLiesOnTheScreenIfItFits()
{
    for (int x = 0; x < 1920; x += 40)
        for (int y = 0; y < 1080; y += 40)
            QVERIFY(belowATopBar.contains(PanelPlacement::place(panel, QRect(x, y, 24, 24), belowATopBar, screen)));
}

const test::Registration<PanelPlacementTest> registeredPanelPlacementTest("PanelPlacement");

} // namespace
} // namespace quillbox

#include "PanelPlacementTest.moc"
