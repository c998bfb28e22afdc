#include "ViewsFixture.h"

#include <QCoro/QCoroFuture>
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
    coordinator.stop();
    QVERIFY(isIn<RecordingCoordinator::Processing>());
}

void ViewsFixture::finish()
{
    process();
    QTRY_VERIFY(isIn<RecordingCoordinator::Done>());
}

void ViewsFixture::fail(const std::string& reason)
{
    recorder->refusal = reason;
    select();
    selector->finish(CaptureRegion{0, 0, 20, 10});
    QTRY_VERIFY(isIn<RecordingCoordinator::Failed>());
    recorder->refusal.reset();
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
