#include "Views/Recording/StopControl.h"

#include "Find.h"
#include "ViewsFixture.h"

#include "support/QtTests.h"
#include "Views/Recording/TimeLabel.h"

#include <QTest>

namespace quillbox {
namespace {

using namespace test;

constexpr QSize controlSize(200, 40);
const QRect wholeScreen(0, 0, 1000, 600);

class StopControlTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void liesOutsideTheRegion_data();
    void liesOutsideTheRegion();
    void goesToAnotherScreenWhereTheRegionFillsItsOwn();
    void showsTheTimeAndStops();
    void staysAwayWhereThereIsNoRoom();
};

void StopControlTest::liesOutsideTheRegion_data()
{
    QTest::addColumn<QRect>("region");
    QTest::addColumn<QPoint>("corner");
    QTest::newRow("in the middle") << QRect(300, 200, 300, 100) << QPoint(400, 312);
    QTest::newRow("narrow, at the left edge") << QRect(0, 200, 50, 100) << QPoint(0, 312);
    QTest::newRow("down to the edge") << QRect(300, 200, 300, 400) << QPoint(400, 148);
    QTest::newRow("as high as the screen") << QRect(300, 0, 300, 600) << QPoint(612, 0);
    QTest::newRow("as high, at the right edge") << QRect(400, 0, 600, 600) << QPoint(188, 0);
}

void StopControlTest::liesOutsideTheRegion()
{
    QFETCH(const QRect, region);
    QFETCH(const QPoint, corner);
    QCOMPARE(StopControl::place(controlSize, region, {wholeScreen}), std::optional(corner));
}

void StopControlTest::goesToAnotherScreenWhereTheRegionFillsItsOwn()
{
    const QRect other(1000, 0, 800, 600);
    QCOMPARE(StopControl::place(controlSize, wholeScreen, {wholeScreen}), std::optional<QPoint>());
    QCOMPARE(StopControl::place(controlSize, wholeScreen, {wholeScreen, other}), std::optional(QPoint(1012, 0)));
}

void StopControlTest::showsTheTimeAndStops()
{
    ViewsFixture fixture;
    StopControl control(fixture.coordinator);
    fixture.record();
    QVERIFY(control.appear(QRect(100, 100, 200, 100), {wholeScreen}));
    QVERIFY(control.isVisible());
    QCOMPARE(control.pos(), QPoint(300 - control.width(), 212));
    QCOMPARE(control.findChild<TimeLabel*>()->text(), QString("0:00"));
    QTest::mouseClick(button(control, "Stop & Copy"), Qt::LeftButton);
    QCOMPARE(fixture.recorder->stops, 1);
    QTRY_VERIFY(fixture.isIn<RecordingCoordinator::Done>());
}

void StopControlTest::staysAwayWhereThereIsNoRoom()
{
    ViewsFixture fixture;
    StopControl control(fixture.coordinator);
    QVERIFY(!control.appear(wholeScreen, {wholeScreen}));
    QVERIFY(!control.isVisible());
}

const test::Registration<StopControlTest> registeredStopControlTest("StopControl");

} // namespace
} // namespace quillbox

#include "StopControlTest.moc"
