#pragma once

#include "App/FrameSources/FrameReceiver.h"
#include "Encoding/FrameIntake.h"

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <exception>
#include <mutex>
#include <optional>
#include <thread>

namespace quillbox {

/// Gives frames to a `FrameIntake` on a thread of its own, so that reading, measuring and shrinking
/// overlap. A reader that is faster waits: only a few frames are under way at a time.
class BackgroundIntake final : public FrameReceiver {
public:
    /// @param sourceFPS  Rate of the frames, whatever the input says; none: the input's own, or else `defaultFPS`.
    BackgroundIntake(ExportPreset preset, std::optional<std::int64_t> sourceFPS);
    ~BackgroundIntake() override;

    void setRate(std::int64_t framesPerSecond) override;
    void take(const RGBAFrame& frame) override;

    /// What the frames came to, once all have been taken in. No frame may follow.
    [[nodiscard]] const FrameIntake& finished();

private:
    static constexpr std::int64_t defaultFPS = 30;

    void work();
    void stop();

    ExportPreset m_preset;
    std::optional<std::int64_t> m_sourceFPS;
    std::optional<FrameIntake> m_intake; ///< the thread's while it runs

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<RGBAFrame> m_waiting;
    bool m_isComplete = false;
    std::exception_ptr m_error; ///< of the thread
    std::thread m_thread;       ///< runs from the first frame on
};

} // namespace quillbox
