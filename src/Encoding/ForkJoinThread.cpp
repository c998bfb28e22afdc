#include "Encoding/ForkJoinThread.h"

#include <utility>

namespace quillbox {

ForkJoinThread::ForkJoinThread()
    : m_thread([this] { work(); })
{
}

ForkJoinThread::~ForkJoinThread()
{
    {
        const std::scoped_lock lock(m_mutex);
        m_isEnding = true;
        m_changed.notify_all();
    }
    m_thread.join();
}

bool ForkJoinThread::isWorthIt(Parallelism parallelism)
{
    return parallelism.threads != 1 && std::thread::hardware_concurrency() > 1;
}

void ForkJoinThread::runBoth(std::function<void()> there, const std::function<void()>& here)
{
    begin(std::move(there));
    try {
        here();
    } catch (...) {
        (void)ended(); // what it does may use what is gone after this; a second error says no more than the first
        throw;
    }
    if (const std::exception_ptr error = ended())
        std::rethrow_exception(error);
}

void ForkJoinThread::begin(std::function<void()> job)
{
    const std::scoped_lock lock(m_mutex);
    m_job = std::move(job);
    m_changed.notify_all();
}

/// Waits for the job. @return what it threw, if anything.
std::exception_ptr ForkJoinThread::ended()
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return !m_job; });
    return std::exchange(m_error, nullptr);
}

void ForkJoinThread::work()
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
