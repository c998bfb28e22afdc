#include "ViewsFixture.h"

#include "support/BusyWorkers.h"

#include <QCoro/QCoroFuture>
#include <QDir>
#include <QFile>
#include <QTest>

#include <utility>

namespace quillbox::test {

QCoro::Task<> ScriptedRecorder::start(CaptureRegion /*region*/)
{
    ++starts;
    if (refusal)
        throw CaptureError(CaptureError::Reason::Unavailable, *refusal);
    m_recording = true;
    co_return;
}

QCoro::Task<Recording> ScriptedRecorder::stop()
{
    ++stops;
    m_recording = false;
    if (holdsStop) {
        m_gate.emplace();
        m_gate->start();
        const QFuture<void> opened = m_gate->future();
        co_await opened;
    }
    co_return Recording(frames);
}

void ScriptedRecorder::release()
{
    if (m_gate)
        m_gate->finish();
}

void ScriptedSelector::finish(Outcome outcome)
{
    const Completion completion = std::exchange(m_completion, nullptr);
    completion(std::move(outcome));
}

namespace {

std::unique_ptr<ScriptedUpdates> remembered(std::unique_ptr<ScriptedUpdates> service, ScriptedUpdates*& place)
{
    place = service.get();
    return service;
}

} // namespace

ViewsFixture::ViewsFixture()
    : history(std::make_shared<HistoryStore>(folder.filePath(QStringLiteral("history.json"))))
    , coordinator(std::make_unique<RecordingCoordinator>(recorder, selector, history))
    , updates(nullptr)
    , updater(remembered(std::make_unique<ScriptedUpdates>(), updates))
{
}

void ViewsFixture::select()
{
    coordinator.begin();
    QVERIFY(isIn<RecordingCoordinator::SelectingRegion>());
}

void ViewsFixture::record()
{
    select();
    selector->finish(CaptureRegion{0, 0, 20, 10});
    QTRY_VERIFY(isIn<RecordingCoordinator::Recording>());
}

void ViewsFixture::process()
{
    record();
    const support::BusyWorkers workers; // until the flow waits for them, however fast they are
    coordinator.stop();
    QVERIFY(isIn<RecordingCoordinator::Processing>());
}

void ViewsFixture::finish()
{
    process();
    QTRY_VERIFY(isIn<RecordingCoordinator::Done>());
}

void ViewsFixture::stopInVain()
{
    record();
    coordinator.stop();
    QTRY_VERIFY(isIn<RecordingCoordinator::Failed>());
}

void ViewsFixture::fail(const std::string& reason)
{
    recorder->refusal = reason;
    select();
    selector->finish(CaptureRegion{0, 0, 20, 10});
    QTRY_VERIFY(isIn<RecordingCoordinator::Failed>());
    recorder->refusal.reset();
}

std::vector<RGBAFrame> smallChanges(int count)
{
    constexpr int side = 100;
    std::vector<RGBAFrame> frames;
    Bytes pixels(std::size_t{side} * side * 4, 255);
    for (int i = 0; i < count; ++i) {
        for (std::size_t channel = 0; channel < 3; ++channel)
            pixels[static_cast<std::size_t>(i) * 4 + channel] = 0;
        frames.emplace_back(side, side, pixels);
    }
    return frames;
}

namespace {

QString videos()
{
    return QDir::homePath() + QStringLiteral("/Videos");
}

} // namespace

ClipsFolderInTheWay::ClipsFolderInTheWay()
{
    (void)QDir(videos()).removeRecursively(); // most often there is none
    QFile obstacle(videos());
    if (!obstacle.open(QIODevice::WriteOnly))
        qFatal("the home folder can't be written to");
}

ClipsFolderInTheWay::~ClipsFolderInTheWay()
{
    (void)QFile::remove(videos());
}

ClipEntry clip(const QString& path, std::int64_t byteCount, double seconds)
{
    return {.date = QDateTime::fromSecsSinceEpoch(1'794'000'000),
        .format = QStringLiteral("GIF"),
        .preset = QStringLiteral("Slack"),
        .outputPath = path,
        .byteCount = byteCount,
        .durationSeconds = seconds,
        .width = 640,
        .height = 360};
}

} // namespace quillbox::test
