#pragma once

#include "App/Workflow/RecordingCoordinator.h"
#include "PostCapture/HistoryStore.h"
#include "ScriptedFlow.h"
#include "support/Await.h"
#include "support/TemporaryFolder.h"

#include <QDir>
#include <QFile>

#include <cstdint>
#include <exception>
#include <stdexcept>
#include <vector>

namespace quillbox::test {

inline constexpr CaptureRegion someRegion{10, 20, 30, 40};

inline RGBAFrame gray(std::int64_t width, std::int64_t height, std::uint8_t level = 128)
{
    return RGBAFrame(width, height, Bytes(static_cast<std::size_t>(width * height * 4), level));
}

/// Pictures that differ in so few pixels that only a precise clip shows them all.
inline std::vector<RGBAFrame> smallChanges(std::int64_t count)
{
    constexpr std::int64_t side = 100;
    std::vector<RGBAFrame> frames;
    Bytes pixels(std::size_t{side} * side * 4, 255);
    for (std::int64_t i = 0; i < count; ++i) {
        for (std::size_t channel = 0; channel < 3; ++channel)
            pixels[static_cast<std::size_t>(i) * 4 + channel] = 0;
        frames.emplace_back(side, side, pixels);
    }
    return frames;
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

    /// A file where the folder of the videos has to be: no clip can be saved until it is taken away.
    void blockClips() const { support::writeFile((home() + "/Videos").toStdString(), std::vector<std::uint8_t>{}); }
    void unblockClips() const { QFile::remove(home() + "/Videos"); }

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
