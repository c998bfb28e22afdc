#include "Views/Recording/ClipResult.h"

#include "Find.h"
#include "support/BusyWorkers.h"
#include "support/QtTests.h"
#include "ViewsFixture.h"

#include <QLabel>
#include <QTest>
#include <QThreadPool>

#include <optional>

namespace quillbox {
namespace {

using namespace test;

class ClipResultTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isThereOnlyWhenAClipIsDone();
    void showsTheClip();
    void showsNoClipThatWasReadTooLate();
    void asksForTheClipToBeShownAndCopied();
    void leavesCopyingToAnotherButton();
};

void ClipResultTest::isThereOnlyWhenAClipIsDone()
{
    ViewsFixture fixture;
    const ClipResult result(fixture.coordinator);
    QVERIFY(result.isHidden());
    fixture.record();
    QVERIFY(result.isHidden());
    fixture.coordinator.stop();
    QTRY_VERIFY(fixture.isIn<RecordingCoordinator::Done>());
    QVERIFY(!result.isHidden());
    fixture.select();
    QVERIFY(result.isHidden());
}

void ClipResultTest::showsTheClip()
{
    ViewsFixture fixture;
    fixture.recorder->frames.assign(1, RGBAFrame(400, 300, Bytes(std::size_t{400} * 300 * 4, 99)));
    const ClipResult result(fixture.coordinator);
    fixture.finish();
    const auto* const picture = result.findChild<QLabel*>();
    QTRY_COMPARE(picture->pixmap().deviceIndependentSize(), QSizeF(72, 54));
    const QColor middle = picture->pixmap().toImage().pixelColor(30, 30);
    QVERIFY(std::abs(middle.red() - 99) <= 4); // of a palette of few bits
}

void ClipResultTest::showsNoClipThatWasReadTooLate()
{
    ViewsFixture fixture;
    std::optional<support::BusyWorkers> workers; // from the end of the clip on, so that reading it has to wait
    connect(&fixture.coordinator, &CurrentCoordinator::phaseChanged, this, [&] {
        if (fixture.isIn<RecordingCoordinator::Done>())
            workers.emplace();
    });
    const ClipResult result(fixture.coordinator);
    fixture.finish();
    fixture.select();
    workers.reset();
    QThreadPool::globalInstance()->waitForDone();
    QCoreApplication::processEvents();
    QVERIFY(result.findChild<QLabel*>()->pixmap().isNull());
}

void ClipResultTest::asksForTheClipToBeShownAndCopied()
{
    ViewsFixture fixture;
    const ClipResult result(fixture.coordinator);
    fixture.finish();
    std::vector<ClipAction> asked;
    connect(&result, &ClipResult::requested, this, [&](ClipAction action, const ClipEntry& entry) {
        QCOMPARE(entry.outputPath, std::get<RecordingCoordinator::Done>(fixture.phase()).path);
        asked.push_back(action);
    });
    QTest::mouseClick(button(result, "Show"), Qt::LeftButton);
    QTest::mouseClick(button(result, "Copy"), Qt::LeftButton);
    QVERIFY(asked == (std::vector{ClipAction::Show, ClipAction::Copy}));
}

void ClipResultTest::leavesCopyingToAnotherButton()
{
    ViewsFixture fixture;
    ClipResult result(fixture.coordinator);
    fixture.finish();
    result.setOffersCopy(false);
    QVERIFY(!button(result, "Copy"));
    QVERIFY(button(result, "Show"));
}

const test::Registration<ClipResultTest> registeredClipResultTest("ClipResult");

} // namespace
} // namespace quillbox

#include "ClipResultTest.moc"
