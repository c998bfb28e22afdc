#include "RecorderFixture.h"

#include "Capture/Journal/CutOffRecordings.h"
#include "Encoding/FrameReducer.h"
#include "support/QtTests.h"
#include "support/TemporaryFolder.h"

#include <QSignalSpy>
#include <QTest>

#include <atomic>
#include <new>

namespace quillbox {
namespace {

using test::eventually;
using Fixture = test::RecorderFixture;

/// Pixels for which there is no memory the first time they are looked at.
class LackingMemoryOnce final : public BackingStore {
public:
    explicit LackingMemoryOnce(Bytes pixels)
        : m_pixels(std::make_shared<const Bytes>(std::move(pixels)))
    {
    }
    [[nodiscard]] std::shared_ptr<const Bytes> read() const override
    {
        if (!m_hasFailed.exchange(true))
            throw std::bad_alloc();
        return m_pixels;
    }

private:
    std::shared_ptr<const Bytes> m_pixels;
    mutable std::atomic<bool> m_hasFailed = false;
};

/// Whoever waits for the thread that measures waits at the third picture.
constexpr FrameSpill::Limits twoMayWait{
    .plainBytes = 1'000'000, .memoryBytes = 1'000'000, .diskSpaceToLeave = 0, .waitingBytes = 8};

} // namespace

/// What a recorder does when what follows the recording fails, and what its journal has.
class RecorderTroubleTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void goesOnWhenMeasuringFailsAndTellsAtOnce();
    void leavesNoJournalWhereNothingWasRecorded();
    void leavesNoJournalOfAStartThatFailed();
    void keepsTheJournalUntilTheClipIsSaved();
    void keepsTheJournalOfARecorderThatGoes();
    void keepsTheJournalOfARecordingThatEndsByItself();
    void theJournalHasTheLatePicture();
};

void RecorderTroubleTest::goesOnWhenMeasuringFailsAndTellsAtOnce()
{
    Fixture fixture(twoMayWait);
    const QSignalSpy impaired(fixture.recorder.get(), &ScreenRecorder::impaired);
    fixture.start();
    const auto unlucky = std::make_shared<const PixelBand>(4, std::make_unique<LackingMemoryOnce>(Bytes{1, 1, 1, 255}));
    fixture.script->sink.frame(RGBAFrame::ofBands(1, 1, {unlucky}), *fixture.now);
    const auto goOn = [&](std::uint8_t number) {
        fixture.tick();
        fixture.deliver(number);
        QCoreApplication::processEvents();
    };
    goOn(2);
    goOn(3); // the second is complete, and compared with the first
    QVERIFY(eventually([&] { return impaired.size() == 1; }));
    for (std::uint8_t number = 4; number <= 8; ++number)
        goOn(number);
    fixture.tick();
    const auto recording = fixture.stopRecording();
    QCOMPARE(test::numbers(recording), (std::vector{1, 2, 3, 4, 5, 6, 7, 8}));
    QCOMPARE(recording.reduced().frameCount(), 8);
    QCOMPARE(impaired.size(), 1);
}

/// A recorder with a journal in a folder of its own.
struct Journaled {
    support::TemporaryFolder folder;
    Fixture fixture{std::nullopt,
        RecordingJournal::Options{.folder = folder.path() / "cache", .diskSpaceToLeave = 0, .coreShare = 1e9}};

    [[nodiscard]] std::vector<CutOffRecordings::Found> found() const
    {
        return CutOffRecordings::find(folder.path() / "cache");
    }
    [[nodiscard]] std::size_t files() const
    {
        std::error_code none;
        return static_cast<std::size_t>(std::distance(
            std::filesystem::directory_iterator(folder.path() / "cache", none), std::filesystem::directory_iterator()));
    }
    void dropRecorder()
    {
        fixture.recorder.reset();
        fixture.script->sink = {}; // as the stream that goes with it
    }
    void recordTwo()
    {
        fixture.recordTwo();
        QCoreApplication::processEvents();
    }
};

void RecorderTroubleTest::leavesNoJournalWhereNothingWasRecorded()
{
    Journaled journaled;
    journaled.fixture.start();
    QVERIFY(journaled.fixture.stop().empty());
    journaled.dropRecorder();
    QCOMPARE(journaled.files(), 0U);
}

void RecorderTroubleTest::leavesNoJournalOfAStartThatFailed()
{
    Journaled journaled;
    journaled.fixture.script->startError = std::make_exception_ptr(std::runtime_error("no"));
    try {
        journaled.fixture.start();
        QFAIL("it started");
    } catch (const std::runtime_error&) {
    }
    journaled.dropRecorder();
    QCOMPARE(journaled.files(), 0U);
}

void RecorderTroubleTest::keepsTheJournalUntilTheClipIsSaved()
{
    Journaled journaled;
    journaled.recordTwo();
    for (int still = 0; still < 3; ++still)
        journaled.fixture.tick();
    {
        const auto recording = journaled.fixture.stopRecording();
        journaled.dropRecorder();
        QVERIFY(journaled.found().empty()); // whoever has the recording has its journal
        QVERIFY(eventually([&] { return journaled.files() == 1; }));
    }
    QVERIFY(eventually([&] { return journaled.found().size() == 1; }));
    const auto recording = CutOffRecordings::take(journaled.found().front());
    QCOMPARE(test::numbers(recording), (std::vector{1, 2, 2, 2, 2}));
    recording.settle();
    QCOMPARE(journaled.files(), 0U);
}

void RecorderTroubleTest::keepsTheJournalOfARecorderThatGoes()
{
    Journaled journaled;
    journaled.recordTwo();
    journaled.dropRecorder();
    QVERIFY(eventually([&] { return journaled.found().size() == 1; }));
    const auto frames = CutOffRecordings::take(journaled.found().front()).frames();
    QCOMPARE(test::numbers({frames.begin(), frames.begin() + 2}), (std::vector{1, 2}));
}

void RecorderTroubleTest::keepsTheJournalOfARecordingThatEndsByItself()
{
    Journaled journaled;
    journaled.recordTwo();
    journaled.fixture.end("gone");
    QCoreApplication::processEvents();
    const auto recording = journaled.fixture.stopRecording();
    QCOMPARE(test::numbers(recording), (std::vector{1, 2}));
    recording.settle();
    journaled.dropRecorder();
    QVERIFY(eventually([&] { return journaled.files() == 0; }));
}

void RecorderTroubleTest::theJournalHasTheLatePicture()
{
    Journaled journaled;
    journaled.fixture.start();
    journaled.fixture.recorder->holdPicture(&journaled); // the first one is taken, those after it when it is released
    for (const auto number : {std::uint8_t{1}, std::uint8_t{2}, std::uint8_t{3}}) {
        journaled.fixture.deliver(number);
        QCoreApplication::processEvents();
        journaled.fixture.tick();
    }
    journaled.fixture.recorder->releasePicture(&journaled);
    journaled.fixture.tick();
    (void)journaled.fixture.stopRecording();
    journaled.dropRecorder();
    QVERIFY(eventually([&] { return journaled.found().size() == 1; }));
    const auto recording = CutOffRecordings::take(journaled.found().front());
    QCOMPARE(test::numbers(recording), (std::vector{1, 1, 1, 3}));
}

namespace {
const test::Registration<RecorderTroubleTest> registeredRecorderTroubleTest("RecorderTrouble");
} // namespace

} // namespace quillbox

#include "RecorderTroubleTest.moc"
