#pragma once

#include "App/Workflow/RecordingCoordinator.h"
#include "PostCapture/HistoryStore.h"
#include "ScriptedFlow.h"
#include "support/Await.h"
#include "support/TemporaryFolder.h"

#include <QDir>

#include <cstdint>
#include <exception>
#include <stdexcept>

namespace quillbox::test {

inline constexpr CaptureRegion someRegion{10, 20, 30, 40};

inline RGBAFrame gray(std::int64_t width, std::int64_t height, std::uint8_t level = 128)
{
    return RGBAFrame(width, height, Bytes(static_cast<std::size_t>(width * height * 4), level));
}

/// A coordinator whose neighbours are scripted, in a home folder of its own.
class CoordinatorFixture {
public:
    CoordinatorFixture()
    {
        qputenv("HOME", home().toUtf8());
        recorder->frames = {gray(8, 6, 10), gray(8, 6, 200)};
    }
    ~CoordinatorFixture() { qputenv("HOME", m_homeBefore); }
    CoordinatorFixture(const CoordinatorFixture&) = delete;
    CoordinatorFixture& operator=(const CoordinatorFixture&) = delete;

    [[nodiscard]] QString home() const { return QString::fromStdString(m_folder.path().string()); }
    [[nodiscard]] QDir clips() const { return QDir(home() + "/Videos/Quillbox"); }

    /// On to a phase, by the road that a user takes.
    void recordARegion()
    {
        coordinator->beginFlow();
        selector->select(someRegion);
    }
    void finish()
    {
        recordARegion();
        await(coordinator->stopAndExport());
    }
    [[nodiscard]] QString failure() const
    {
        const auto* const failed = std::get_if<RecordingCoordinator::Failed>(&coordinator->phase());
        return failed == nullptr ? QStringLiteral("(no failure)") : failed->message;
    }

private:
    support::TemporaryFolder m_folder;
    QByteArray m_homeBefore = qgetenv("HOME");

public:
    std::shared_ptr<ScriptedRecorder> recorder = std::make_shared<ScriptedRecorder>();
    std::shared_ptr<ScriptedSelector> selector = std::make_shared<ScriptedSelector>();
    std::shared_ptr<HistoryStore> history = std::make_shared<HistoryStore>(home() + "/history.json");
    std::unique_ptr<RecordingCoordinator> coordinator
        = std::make_unique<RecordingCoordinator>(recorder, selector, history);
};

/// How far a flow has come.
enum class Step : std::uint8_t { Idle, Selecting, Recording, Processing, Done, Failed };

/// Takes `fixture` to that step. While it is processing, the recorder's stop waits for its gate, and the task for that.
inline QCoro::Task<> take(CoordinatorFixture& fixture, Step step)
{
    if (step == Step::Idle)
        co_return;
    fixture.coordinator->beginFlow();
    if (step == Step::Selecting)
        co_return;
    if (step == Step::Failed)
        fixture.recorder->startError = std::make_exception_ptr(std::runtime_error("no"));
    if (step == Step::Processing)
        ScriptedRecorder::close(fixture.recorder->stopGate);
    fixture.selector->select(someRegion);
    if (step == Step::Processing || step == Step::Done)
        co_await fixture.coordinator->stopAndExport();
}

} // namespace quillbox::test
