#pragma once

#include "Encoding/FrameReducer.h"
#include "Encoding/Pixels/PixelTypes.h"

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>

namespace quillbox {

/// For frames that come one by one and are taken in in this order: a thread with a queue. It gives them to a
/// `FrameReducer`, so that whoever has them is not held up by the measuring.
/// Thread: take() and finished() are for one thread at a time.
class FrameReducerThread {
public:
    static constexpr std::size_t unlimited = 0;
    using Afterwards = std::function<void(const RGBAFrame&)>;

    /// @param maxQueue  Frames that may be under way; a faster caller then waits. `unlimited`: nobody ever waits.
    /// @param afterwards    Called on the thread with each frame that has been taken in; may be empty.
    explicit FrameReducerThread(
        FrameReducer reducer, std::size_t maxQueue = unlimited, Afterwards afterwards = nullptr);
    /// What is still waiting is dropped.
    ~FrameReducerThread();
    FrameReducerThread(const FrameReducerThread&) = delete;
    FrameReducerThread& operator=(const FrameReducerThread&) = delete;

    /// Takes the next frame, oldest first. @pre finished() has not been called.
    void take(RGBAFrame frame);

    /// Frames handed over so far.
    [[nodiscard]] std::int64_t takenCount() const { return m_takenCount; }

    /// Frames done with so far.
    [[nodiscard]] std::int64_t doneCount() const { return m_doneCount; }

    /// What the frames came to. Waits until all have been taken in; no frame may follow.
    /// @throws std::bad_alloc  measuring ran out of memory; and whatever `afterwards` threw.
    [[nodiscard]] const FrameReducer& finished();

private:
    void work();
    void end();

    FrameReducer m_reducer; ///< the thread's while it runs
    std::size_t m_largestQueue;
    Afterwards m_afterwards;
    std::int64_t m_takenCount = 0;
    std::atomic<std::int64_t> m_doneCount = 0;

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<RGBAFrame> m_waiting;
    bool m_isComplete = false;
    std::exception_ptr m_error; ///< of the thread
    std::thread m_thread;
};

} // namespace quillbox
