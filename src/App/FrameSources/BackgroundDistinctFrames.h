#pragma once

#include "App/FrameSources/FrameConsumer.h"
#include "Encoding/FrameThread.h"
#include "Encoding/Precise/DistinctFrames.h"
#include "Encoding/Precise/PreciseOptimizer.h"

#include <cstdint>
#include <optional>

namespace quillbox {

/// Gives frames to `DistinctFrames`, if it may on a thread of its own, so that reading and comparing overlap. A reader
/// that is faster waits: only a few frames are under way at a time.
class BackgroundDistinctFrames final : public FrameConsumer {
public:
    /// @param onKept       As `DistinctFrames`; called on the thread.
    /// @param parallelism  As `ReadingThreads::reducer`.
    explicit BackgroundDistinctFrames(
        const PreciseOptimizer::Config& config, DistinctFrames::OnKept onKept = nullptr, Parallelism parallelism = {});

    /// @pre the rate is a whole number of frames per second. Without a call it is `defaultFPS`.
    void setRate(FrameRate rate) override;
    void take(const RGBAFrame& frame) override;

    /// What the frames came to, once all have been looked at. No frame may follow.
    /// @throws std::bad_alloc  there is not enough memory; and whatever `onKept` threw.
    [[nodiscard]] const DistinctFrames& finished();

private:
    static constexpr std::int64_t defaultFPS = 30;

    PreciseOptimizer::Config m_config;
    std::int64_t m_sourceFPS = defaultFPS;
    DistinctFrames::OnKept m_onKept;
    Parallelism m_parallelism;
    // One of them, from the first frame on.
    std::optional<DistinctFrames> m_distinct;
    std::optional<FrameThread<DistinctFrames>> m_thread;
};

} // namespace quillbox
