#include "Capture/Region/SelectionWindow.h"

#include <QCoreApplication>
#include <QEvent>
#include <QImage>
#include <QPointer>
#include <QTest>

#include <algorithm>
#include <cstdlib>
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
    Q_SLOT void theRightButtonCancels();
    Q_SLOT void theRightButtonCancelsADrag();
    Q_SLOT void theMiddleButtonDoesNothing();
    Q_SLOT void saysWhatToDoUntilTheDragBegins();
    Q_SLOT void theSelectionIsSeenOnAnyPicture_data();
    Q_SLOT void theSelectionIsSeenOnAnyPicture();
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

void SelectionWindowTest::theRightButtonCancels()
{
    Results results;
    const auto overlay = shownOverlay(results);
    QTest::mouseClick(overlay, Qt::RightButton, {}, QPoint(100, 100));
    QCOMPARE(results, Results{std::nullopt});
    QVERIFY(!overlay->isVisible());
}

void SelectionWindowTest::theRightButtonCancelsADrag()
{
    Results results;
    const auto overlay = shownOverlay(results);
    QTest::mousePress(overlay, Qt::LeftButton, {}, QPoint(100, 80));
    QTest::mouseMove(overlay, QPoint(20, 20));
    QTest::mouseClick(overlay, Qt::RightButton, {}, QPoint(20, 20));
    QCOMPARE(results, Results{std::nullopt});
}

void SelectionWindowTest::saysWhatToDoUntilTheDragBegins()
{
    Results results;
    const auto overlay = shownOverlay(results);
    const QRect place(120, 60, 400, 40);
    const auto white = [&] { // pixels of a text
        const QImage image = overlay->grab(place).toImage();
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                count += qGray(image.pixel(x, y)) > 200 ? 1 : 0;
        return count;
    };
    QVERIFY(white() > 100);
    QTest::mousePress(overlay, Qt::LeftButton, {}, QPoint(600, 400));
    QCOMPARE(white(), 0);
    overlay->withdraw();
}

void SelectionWindowTest::theSelectionIsSeenOnAnyPicture_data()
{
    QTest::addColumn<QColor>("accent");
    for (const auto* const accent : {"black", "white", "#3daee9", "#308cc6", "#1a1a80", "#ffd200"})
        QTest::addRow("%s", accent) << QColor(accent);
}

void SelectionWindowTest::theSelectionIsSeenOnAnyPicture()
{
    QFETCH(QColor, accent);
    Results results;
    for (const QColor background : {QColor("black"), QColor("white"), accent}) {
        QPixmap backdrop(640, 480);
        backdrop.fill(background);
        QPointer overlay(new SelectionWindow(QRect(0, 0, 640, 480), backdrop,
            [&results](std::optional<CaptureRegion> region) { results.push_back(region); }));
        QPalette palette;
        palette.setColor(QPalette::Highlight, accent);
        overlay->setPalette(palette);
        overlay->makeKeyAndOrderFront();
        QTest::mousePress(overlay, Qt::LeftButton, {}, QPoint(100, 100));
        QTest::mouseMove(overlay, QPoint(300, 300));
        const QImage image = overlay->grab().toImage();
        const int outside = qGray(image.pixel(90, 200));
        int furthest = 0;
        for (int x = 96; x < 104; ++x) // across the line
            furthest = std::max(furthest, std::abs(qGray(image.pixel(x, 200)) - outside));
        QVERIFY2(furthest > 40, qPrintable(background.name()));
        overlay->withdraw();
    }
}

void SelectionWindowTest::theMiddleButtonDoesNothing()
{
    Results results;
    const auto overlay = shownOverlay(results);
    QTest::mouseClick(overlay, Qt::MiddleButton, {}, QPoint(100, 100));
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
