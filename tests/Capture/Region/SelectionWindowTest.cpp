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

} // namespace quillbox

QTEST_MAIN(quillbox::SelectionWindowTest)
#include "SelectionWindowTest.moc"
