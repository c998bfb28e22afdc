#include "Capture/Region/SelectionWindow.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>
#include <QTest>

#include <optional>
#include <vector>

namespace quillbox {
namespace {

using Results = std::vector<std::optional<CaptureRegion>>;

/// An overlay that is on the screen. It deletes itself.
QPointer<SelectionWindow> shownOverlay(Results& results)
{
    QPointer overlay(new SelectionWindow(QRect(0, 0, 640, 480), QPixmap(),
        [&results](std::optional<CaptureRegion> region) { results.push_back(region); }));
    overlay->makeKeyAndOrderFront();
    return overlay;
}

} // namespace

class SelectionWindowTest : public QObject {
    Q_OBJECT

private:
    Q_SLOT void closingItCancelsAndIsNotRefused();
    Q_SLOT void aReleaseWithoutAPressCancels();
    Q_SLOT void aClickCancels();
    Q_SLOT void aDragSelectsItsRegion();
    Q_SLOT void otherButtonsDoNothing();
    Q_SLOT void onlyEscapeCancels();
};

void SelectionWindowTest::closingItCancelsAndIsNotRefused()
{
    Results results;
    const auto overlay = shownOverlay(results);
    QVERIFY(overlay->close()); // a window that refuses keeps the application from quitting
    QCOMPARE(results, Results{std::nullopt});
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!overlay);
    QCOMPARE(results, Results{std::nullopt}); // once
}

void SelectionWindowTest::aReleaseWithoutAPressCancels()
{
    Results results;
    const auto overlay = shownOverlay(results);
    QTest::mouseRelease(overlay, Qt::LeftButton, {}, QPoint(100, 100)); // the press was somewhere else
    QCOMPARE(results, Results{std::nullopt});
    QVERIFY(!overlay->isVisible());
}

void SelectionWindowTest::aClickCancels()
{
    Results results;
    const auto overlay = shownOverlay(results);
    QTest::mouseClick(overlay, Qt::LeftButton, {}, QPoint(100, 100));
    QCOMPARE(results, Results{std::nullopt});
}

void SelectionWindowTest::aDragSelectsItsRegion()
{
    Results results;
    const auto overlay = shownOverlay(results);
    QTest::mousePress(overlay, Qt::LeftButton, {}, QPoint(100, 80));
    QTest::mouseMove(overlay, QPoint(60, 50));
    QTest::mouseRelease(overlay, Qt::LeftButton, {}, QPoint(20, 20));
    QVERIFY(!overlay->isVisible());
    QTRY_COMPARE(results, Results{(CaptureRegion{20, 20, 80, 60})}); // once the screen is as it was
}

void SelectionWindowTest::otherButtonsDoNothing()
{
    Results results;
    const auto overlay = shownOverlay(results);
    QTest::mouseClick(overlay, Qt::RightButton, {}, QPoint(100, 100));
    QTest::mouseRelease(overlay, Qt::MiddleButton, {}, QPoint(100, 100));
    QVERIFY(overlay->isVisible());
    QCOMPARE(results, Results{});
    overlay->withdraw();
}

void SelectionWindowTest::onlyEscapeCancels()
{
    Results results;
    const auto overlay = shownOverlay(results);
    QTest::keyClick(overlay, Qt::Key_Return);
    QTest::keyClick(overlay, Qt::Key_Q, Qt::ControlModifier);
    QVERIFY(overlay->isVisible());
    QCOMPARE(results, Results{});
    QTest::keyClick(overlay, Qt::Key_Escape);
    QCOMPARE(results, Results{std::nullopt});
}

} // namespace quillbox

QTEST_MAIN(quillbox::SelectionWindowTest)
#include "SelectionWindowTest.moc"
