#include "Encoding/FrameReducerThread.h"

#include <utility>

namespace quillbox {

FrameReducerThread::FrameReducerThread(FrameReducer reducer, std::size_t maxQueue, Afterwards afterwards)
    : m_reducer(std::move(reducer))
    , m_largestQueue(maxQueue)
    , m_afterwards(std::move(afterwards))
    , m_thread([this] { work(); })
{
}

FrameReducerThread::~FrameReducerThread()
{
    {
        const std::scoped_lock lock(m_mutex);
        m_waiting.clear();
    }
    end();
}

void FrameReducerThread::take(RGBAFrame frame)
{
    std::unique_lock lock(m_mutex);
    precondition(!m_isComplete, "no frame follows the last one");
    ++m_takenCount;
    m_changed.wait(
        lock, [this] { return m_largestQueue == unlimited || m_waiting.size() < m_largestQueue || m_error; });
    if (m_error)
        return; // nothing can come of the frames any more
    m_waiting.push_back(std::move(frame));
    m_changed.notify_all();
}

const FrameReducer& FrameReducerThread::finished()
{
    end();
    if (m_error)
        std::rethrow_exception(m_error);
    return m_reducer;
}

void FrameReducerThread::work()
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
            m_reducer.append(frame);
            if (m_afterwards)
                m_afterwards(frame);
        } catch (...) { // as a rule out of memory
            lock.lock();
            m_error = std::current_exception();
            m_changed.notify_all();
            return;
        }
        ++m_doneCount;
        lock.lock();
    }
}

void FrameReducerThread::end()
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
