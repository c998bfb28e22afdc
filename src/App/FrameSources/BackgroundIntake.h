#pragma once

#include "App/FrameSources/FrameReceiver.h"
#include "Encoding/FrameIntake.h"
#include "Encoding/IntakeThread.h"

#include <cstdint>
#include <optional>

namespace quillbox {

/// Gives frames to a `FrameIntake` on a thread of its own, so that reading, measuring and shrinking
/// overlap. A reader that is faster waits: only a few frames are under way at a time.
class BackgroundIntake final : public FrameReceiver {
public:
    /// @param sourceFPS  Rate of the frames, whatever the input says; none: the input's own, or else `defaultFPS`.
    BackgroundIntake(ExportPreset preset, std::optional<std::int64_t> sourceFPS);

    void setRate(std::int64_t framesPerSecond) override;
    void take(const RGBAFrame& frame) override;

    /// What the frames came to, once all have been taken in. No frame may follow.
    [[nodiscard]] const FrameIntake& finished();

private:
    static constexpr std::int64_t defaultFPS = 30;

    ExportPreset m_preset;
    std::optional<std::int64_t> m_sourceFPS;
    std::optional<IntakeThread> m_thread; ///< runs from the first frame on
};

} // namespace quillbox
