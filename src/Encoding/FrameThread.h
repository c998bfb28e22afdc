#pragma once

#include "Encoding/Pixels/PixelTypes.h"
#include "Encoding/Precondition.h"

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>
#include <utility>

namespace quillbox {

/// For frames that come one by one and are taken in in this order: a thread with a queue. It gives them to an object,
/// so that whoever has them is not held up by what that does with them.
/// @tparam Frames  Takes in a frame by `append`, such as `FrameReducer` and `DistinctFrames`.
/// Thread: take() and finished() are for one thread at a time.
template <typename Frames> class FrameThread {
public:
    static constexpr std::size_t unlimited = 0;
    using Afterwards = std::function<void(const RGBAFrame&)>;
    using Failed = std::function<void()>;

    /// @param maxQueue    Frames that may be under way; a faster caller then waits. `unlimited`: nobody ever waits.
    /// @param afterwards  Called on the thread with each frame that has been taken in; may be empty.
    /// @param failed      Called on the thread when taking a frame in, or `afterwards`, has thrown: none follows.
    explicit FrameThread(
        Frames frames, std::size_t maxQueue = unlimited, Afterwards afterwards = nullptr, Failed failed = nullptr)
        : m_frames(std::move(frames))
        , m_maxQueue(maxQueue)
        , m_afterwards(std::move(afterwards))
        , m_failed(std::move(failed))
        , m_thread([this] { work(); })
    {
    }
    /// What is still waiting is dropped.
    ~FrameThread()
    {
        {
            const std::scoped_lock lock(m_mutex);
            m_waiting.clear();
        }
        end();
    }
    FrameThread(const FrameThread&) = delete;
    FrameThread& operator=(const FrameThread&) = delete;

    /// Takes the next frame, oldest first. @pre finished() has not been called.
    void take(RGBAFrame frame)
    {
        std::unique_lock lock(m_mutex);
        precondition(!m_isComplete, "no frame follows the last one");
        ++m_takenCount;
        m_changed.wait(lock, [this] { return m_maxQueue == unlimited || m_waiting.size() < m_maxQueue || m_error; });
        if (m_error)
            return; // nothing can come of the frames any more
        m_waiting.push_back(std::move(frame));
        m_changed.notify_all();
    }

    /// Frames handed over so far.
    [[nodiscard]] std::int64_t takenCount() const { return m_takenCount; }

    /// Frames done with so far.
    [[nodiscard]] std::int64_t doneCount() const { return m_doneCount; }

    /// What the frames came to. Waits until all have been taken in; no frame may follow.
    /// @throws  What taking one in threw, as a rule std::bad_alloc, or what `afterwards` threw.
    [[nodiscard]] const Frames& finished()
    {
        end();
        if (m_error)
            std::rethrow_exception(m_error);
        return m_frames;
    }

private:
    void work()
    {
        std::unique_lock lock(m_mutex);
        for (;;) {
            m_changed.wait(lock, [this] { return !m_waiting.empty() || m_isComplete; });
            if (m_waiting.empty())
                return;
            const RGBAFrame frame = std::move(m_waiting.front());
            m_waiting.pop_front();
            m_changed.notify_all();
            lock.unlock();
            try {
                m_frames.append(frame);
                if (m_afterwards)
                    m_afterwards(frame);
            } catch (...) { // as a rule out of memory
                lock.lock();
                m_error = std::current_exception();
                m_waiting.clear();
                m_changed.notify_all();
                lock.unlock();
                if (m_failed)
                    m_failed();
                return;
            }
            ++m_doneCount;
            lock.lock();
        }
    }

    void end()
    {
        {
            const std::scoped_lock lock(m_mutex);
            m_isComplete = true;
            m_changed.notify_all();
        }
        if (m_thread.joinable())
            m_thread.join();
    }

    Frames m_frames; ///< the thread's while it runs
    std::size_t m_maxQueue;
    Afterwards m_afterwards;
    Failed m_failed;
    std::int64_t m_takenCount = 0;
    std::atomic<std::int64_t> m_doneCount = 0;

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<RGBAFrame> m_waiting;
    bool m_isComplete = false;
    std::exception_ptr m_error; ///< of the thread
    std::thread m_thread;       ///< last, as it uses the others
};

} // namespace quillbox
