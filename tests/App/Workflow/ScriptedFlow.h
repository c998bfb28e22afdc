#pragma once

#include "Capture/RecorderControlling.h"
#include "Capture/RecordingReducer.h"
#include "Capture/Region/RegionSelector.h"

#include <QCoro/QCoroFuture>
#include <QPromise>

#include <exception>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace quillbox::test {

/// A recorder that does what a test says, when it says so.
class ScriptedRecorder : public RecorderControlling {
public:
    std::exception_ptr startError;            ///< thrown by start(), if any
    std::optional<QPromise<void>> startGate;  ///< start() waits until it is finished
    std::optional<QPromise<void>> stopGate;   ///< stop() waits until it is finished
    std::vector<RGBAFrame> frames;            ///< what stop() returns
    std::shared_ptr<RecordingReducer> learnt; ///< what is known of them, if anything
    int starts = 0;
    int stops = 0;
    CaptureRegion region; ///< of the latest start()

    [[nodiscard]] bool isRecording() const override { return m_isRecording; }

    QCoro::Task<> start(CaptureRegion wanted) override
    {
        ++starts;
        region = wanted;
        if (startGate) {
            const auto gate = startGate->future();
            co_await gate;
        }
        if (startError)
            std::rethrow_exception(startError);
        m_isRecording = true;
    }

    QCoro::Task<Recording> stop() override
    {
        ++stops;
        if (stopGate) {
            const auto gate = stopGate->future();
            co_await gate;
        }
        m_isRecording = false;
        if (learnt) {
            Recording recording(frames, learnt);
            co_return recording;
        }
        co_return Recording(frames);
    }

    static void close(std::optional<QPromise<void>>& gate)
    {
        gate.emplace();
        gate->start();
    }

private:
    bool m_isRecording = false;
};

/// A selector that waits for a test to select.
class ScriptedSelector : public RegionSelector {
public:
    Completion completion; ///< of the latest present()
    int presentations = 0;

    void present(Completion toCall) override
    {
        ++presentations;
        completion = std::move(toCall);
    }

    void select(Outcome outcome) { std::exchange(completion, {})(std::move(outcome)); }
};

} // namespace quillbox::test
