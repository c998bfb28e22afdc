#include "Encoding/Precise/DistinctFramesThread.h"

#include "Encoding/Precondition.h"

#include <utility>

namespace quillbox {

DistinctFramesThread::DistinctFramesThread(DistinctFrames frames, std::size_t maxQueue)
    : m_frames(std::move(frames))
    , m_maxQueue(maxQueue)
    , m_thread([this] { work(); })
{
    precondition(maxQueue >= 1, "a frame may be under way");
}

DistinctFramesThread::~DistinctFramesThread()
{
    {
        const std::scoped_lock lock(m_mutex);
        m_waiting.clear();
    }
    end();
}

void DistinctFramesThread::take(RGBAFrame frame)
{
    std::unique_lock lock(m_mutex);
    precondition(!m_isComplete, "no frame follows the last one");
    m_changed.wait(lock, [this] { return m_waiting.size() < m_maxQueue || m_error; });
    if (m_error)
        return; // nothing can come of the frames any more
    m_waiting.push_back(std::move(frame));
    m_changed.notify_all();
}

const DistinctFrames& DistinctFramesThread::finished()
{
    end();
    if (m_error)
        std::rethrow_exception(m_error);
    return m_frames;
}

void DistinctFramesThread::work()
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
        } catch (...) { // as a rule out of memory
            lock.lock();
            m_error = std::current_exception();
            m_changed.notify_all();
            return;
        }
        lock.lock();
    }
}

void DistinctFramesThread::end()
{
    {
        const std::scoped_lock lock(m_mutex);
        m_isComplete = true;
        m_changed.notify_all();
    }
    if (m_thread.joinable())
        m_thread.join();
}

} // namespace quillbox
