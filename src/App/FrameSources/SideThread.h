#pragma once

#include <condition_variable>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>

namespace quillbox {

/// A thread that does one job at a time beside its owner, for work that is shared too often to start a thread each
/// time. Used by one thread at a time.
class SideThread {
public:
    SideThread();
    /// Waits for the job under way; what it throws is lost.
    ~SideThread();
    SideThread(const SideThread&) = delete;
    SideThread& operator=(const SideThread&) = delete;

    /// Begins `job` and returns. @pre the job before has been waited for.
    void begin(std::function<void()> job);

    /// Returns when the job is done. @throws whatever it threw.
    void wait();

private:
    void work();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::function<void()> m_job; ///< under way, or none
    std::exception_ptr m_error;  ///< of the last job
    bool m_isEnding = false;
    std::thread m_thread; ///< last, as it uses the others
};

} // namespace quillbox
