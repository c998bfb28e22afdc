#pragma once

#include "App/FrameSources/FrameConsumer.h"
#include "Encoding/FrameReducer.h"
#include "Encoding/FrameThread.h"

#include <cstdint>
#include <optional>

namespace quillbox {

/// Gives frames to a `FrameReducer`, if it may on a thread of its own, so that reading, measuring and shrinking
/// overlap. A reader that is faster waits: only a few frames are under way at a time.
class BackgroundReducer final : public FrameConsumer {
public:
    /// @param onKept       As `FrameReducer::sparing`; called on the thread.
    /// @param parallelism  As `ReadingThreads::reducer`.
    explicit BackgroundReducer(
        ExportPreset preset, FrameReducer::OnKept onKept = nullptr, Parallelism parallelism = {});

    /// @pre the rate is a whole number of frames per second. Without a call it is `defaultFPS`.
    void setRate(FrameRate rate) override;
    void take(const RGBAFrame& frame) override;

    /// What the frames came to, once all have been taken in. No frame may follow.
    /// @throws std::bad_alloc  measuring ran out of memory; and whatever `onKept` threw.
    [[nodiscard]] const FrameReducer& finished();

private:
    static constexpr std::int64_t defaultFPS = 30;

    ExportPreset m_preset;
    std::int64_t m_sourceFPS = defaultFPS;
    FrameReducer::OnKept m_onKept;
    Parallelism m_parallelism;
    // One of them, from the first frame on.
    std::optional<FrameReducer> m_reducer;
    std::optional<FrameThread<FrameReducer>> m_thread;
};

} // namespace quillbox
