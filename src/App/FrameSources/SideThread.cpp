#include "App/FrameSources/SideThread.h"

#include "Encoding/Precondition.h"

#include <utility>

namespace quillbox {

SideThread::SideThread()
    : m_thread([this] { work(); })
{
}

SideThread::~SideThread()
{
    {
        const std::scoped_lock lock(m_mutex);
        m_isEnding = true;
        m_changed.notify_all();
    }
    m_thread.join();
}

void SideThread::begin(std::function<void()> job)
{
    const std::scoped_lock lock(m_mutex);
    precondition(!m_job && !m_error, "one job is waited for before the next begins");
    m_job = std::move(job);
    m_changed.notify_all();
}

void SideThread::wait()
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return !m_job; });
    if (m_error)
        std::rethrow_exception(std::exchange(m_error, nullptr));
}

void SideThread::work()
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_changed.wait(lock, [this] { return m_job || m_isEnding; });
        if (!m_job)
            return;
        lock.unlock();
        std::exception_ptr error;
        try {
            m_job(); // nobody touches it before it is done
        } catch (...) {
            error = std::current_exception();
        }
        lock.lock();
        m_error = error;
        m_job = nullptr;
        m_changed.notify_all();
    }
}

} // namespace quillbox
