#pragma once

#include "Encoding/ForkJoinThread.h"
#include "Encoding/FPSAdaptive.h"
#include "Encoding/FrameComparisons.h"
#include "Encoding/FrameDeduplicator.h"
#include "Encoding/FrameResampler.h"
#include "Encoding/GIFEncoder.h"
#include "Encoding/Parallel.h"
#include "Encoding/Pixels/PixelTypes.h"
#include "Encoding/Presets.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace quillbox {

/// Takes a recording's frames one by one and does at once what need not wait for the last: it measures the activity
/// and, for every frame rate that one of the presets may end up with, drops the frames that a GIF of that rate would
/// not show. Frames that no rate keeps are let go of, so a long input never lies in memory whole.
///
/// Can be moved; one thread at a time.
class FrameReducer {
public:
    /// @param sourceFPS  Rate of the frames to come, frames per second.
    /// @param presets    Those that may be asked for in the end; not empty.
    FrameReducer(std::int64_t sourceFPS, std::span<const ExportPreset> presets);

    /// A reducer for any preset, to be chosen in the end.
    [[nodiscard]] static FrameReducer forAnyPreset(std::int64_t sourceFPS);

    /// Called once with each picture that is kept in memory. It is made of bands, so that they can be evicted.
    using OnKept = std::function<void(const RGBAFrame&)>;

    /// A reducer for one preset whose frames take up as little memory as may be: those that have a backing store are
    /// evicted, any other is shrunk to the preset's width as soon as it is to be kept.
    /// @param onKept       May be empty. What it throws comes out of append().
    /// @param parallelism  For shrinking, which two threads at most share.
    [[nodiscard]] static FrameReducer sparing(
        std::int64_t sourceFPS, ExportPreset preset, OnKept onKept = nullptr, Parallelism parallelism = {});

    /// Takes the next frame. Its pixels are shared, not copied.
    void append(const RGBAFrame& frame) { take(frame, Activity::Counted); }
    /// The same for a frame that repeats the one before whatever the screen showed meanwhile: that says nothing of how
    /// much the recording moves.
    void appendHeld(const RGBAFrame& frame) { take(frame, Activity::Uncounted); }

    [[nodiscard]] std::int64_t sourceFPS() const { return m_sourceFPS; }
    /// Frames taken so far.
    [[nodiscard]] std::int64_t frameCount() const { return m_frameCount; }

    /// What a GIF of the recording shows.
    struct Selection {
        std::int64_t fps = 0;                         ///< the rate chosen from the activity, frames per second
        std::vector<FrameDeduplicator::Timed> frames; ///< at their captured size unless shrunk, at least one
    };

    /// @throws GIFEncodingError  the first frame a side of which exceeds 65535 pixels.
    /// @pre at least one frame was taken; `preset` is one of the constructor's.
    [[nodiscard]] Selection selection(ExportPreset preset) const;

private:
    /// A frame rate that may be chosen, and the frames that a GIF of this rate would show.
    struct Candidate {
        std::int64_t fps;
        FPSAdaptive::Resampler resampler;
        FrameDeduplicator::Deduplicator deduplicator;
        std::vector<PixelView> pinned; ///< of the last frame kept if it was evicted: the next ones are compared with it
    };

    /// A frame, and what is kept of it.
    struct Kept {
        RGBAFrame original;
        RGBAFrame substitute;
    };

    enum class Activity { Counted, Uncounted };

    void take(const RGBAFrame& frame, Activity activity);
    [[nodiscard]] RGBAFrame shrunk(const RGBAFrame& frame);
    /// What is kept instead of a frame; perhaps itself, evicted.
    [[nodiscard]] const RGBAFrame& substituteFor(const RGBAFrame& frame);

    std::int64_t m_sourceFPS;
    std::int64_t m_frameCount = 0;
    bool m_isSparing = false;
    std::optional<std::int64_t> m_maxWidth;        ///< what to shrink to at once, pixels
    std::optional<FrameResampler::WidthCap> m_cap; ///< the same for the size of the first frame
    OnKept m_onKept;                               ///< may be empty
    Parallelism m_parallelism;
    std::optional<Kept> m_lastKept;         ///< several rates may keep one frame
    std::unique_ptr<ForkJoinThread> m_side; ///< shrinks the upper halves, once there was something to shrink
    std::vector<Candidate> m_candidates;
    FPSAdaptive::ActivityMeter m_activity;
    FrameComparisons m_comparisons;
    std::optional<GIFEncodingError::DimensionTooLarge> m_tooLarge; ///< the first frame that is
};

} // namespace quillbox
