#pragma once

#include "Encoding/Pixels/PixelTypes.h"
#include "Encoding/Precise/DistinctFrames.h"

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <mutex>
#include <thread>

namespace quillbox {

/// Gives frames to `DistinctFrames` on a thread of its own, so that reading and comparing overlap.
/// Thread: take() and finished() are for one thread at a time.
class DistinctFramesThread {
public:
    /// @param maxQueue  Frames that may be under way, at least 1; a faster caller then waits.
    DistinctFramesThread(DistinctFrames frames, std::size_t maxQueue);
    /// What is still waiting is dropped.
    ~DistinctFramesThread();
    DistinctFramesThread(const DistinctFramesThread&) = delete;
    DistinctFramesThread& operator=(const DistinctFramesThread&) = delete;

    /// Takes the next frame, oldest first. @pre finished() has not been called.
    void take(RGBAFrame frame);

    /// What the frames came to. Waits until all have been looked at; no frame may follow.
    /// @throws whatever looking at them threw, as a rule std::bad_alloc or what `onKept` throws.
    [[nodiscard]] const DistinctFrames& finished();

private:
    void work();
    void end();

    DistinctFrames m_frames; ///< the thread's while it runs
    std::size_t m_maxQueue;

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<RGBAFrame> m_waiting;
    bool m_isComplete = false;
    std::exception_ptr m_error; ///< of the thread
    std::thread m_thread;       ///< last, as it uses the others
};

} // namespace quillbox
