#pragma once

#include "App/FrameSources/FrameConsumer.h"
#include "Encoding/FrameThread.h"
#include "Encoding/Precondition.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <utility>

namespace quillbox {

/// Where the frames of an input are taken in.
enum class Intake {
    here,      ///< on the reader's thread
    onAThread, ///< on a thread of its own, so that reading and measuring overlap
};

/// Gives the frames of an input to what an optimizer makes its GIF of. A reader that is faster than the thread waits:
/// only a few frames are under way at a time.
/// @tparam Frames  `FrameReducer` or `DistinctFrames`.
template <typename Frames> class BackgroundFrames final : public FrameConsumer {
public:
    /// @param make  Called with the rate of the frames, a second, before the first one.
    explicit BackgroundFrames(std::function<Frames(std::int64_t sourceFPS)> make, Intake intake = Intake::onAThread)
        : m_make(std::move(make))
        , m_intake(intake)
    {
    }

    /// @pre no frame has been taken, and the rate is a whole number of frames per second. Without a call it is
    ///      `defaultFPS`.
    void setRate(FrameRate rate) override
    {
        precondition(!m_thread && !m_frames, "a rate is known before the first frame");
        precondition(rate.seconds == 1, "a whole number of frames per second");
        m_sourceFPS = rate.frames;
    }

    void take(const RGBAFrame& frame) override
    {
        if (m_intake == Intake::here) {
            if (!m_frames)
                m_frames.emplace(m_make(m_sourceFPS));
            m_frames->append(frame);
        } else {
            if (!m_thread)
                m_thread.emplace(m_make(m_sourceFPS), maxQueue);
            m_thread->take(frame);
        }
    }

    /// What the frames came to, once all have been taken in. No frame may follow.
    /// @throws std::bad_alloc  there is not enough memory; and what taking a frame in throws.
    /// @pre    there was a frame
    [[nodiscard]] const Frames& finished()
    {
        precondition(m_thread || m_frames, "an input has a frame");
        return m_frames ? *m_frames : m_thread->finished();
    }

private:
    static constexpr std::int64_t defaultFPS = 30;
    static constexpr std::size_t maxQueue = 4; // frames

    std::function<Frames(std::int64_t)> m_make;
    Intake m_intake;
    std::int64_t m_sourceFPS = defaultFPS;
    // One of them, from the first frame on.
    std::optional<Frames> m_frames;
    std::optional<FrameThread<Frames>> m_thread;
};

} // namespace quillbox
