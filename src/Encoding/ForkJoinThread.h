#pragma once

#include "Encoding/Parallel.h"

#include <condition_variable>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>

namespace quillbox {

/// For two halves of work that comes again and again, hundreds of times a second: a thread that stays and does one of
/// them, where `parallelFor` would start one each time.
/// Used by one thread at a time.
class ForkJoinThread {
public:
    ForkJoinThread();
    ~ForkJoinThread();
    ForkJoinThread(const ForkJoinThread&) = delete;
    ForkJoinThread& operator=(const ForkJoinThread&) = delete;

    /// Whether two threads may be used, and the machine runs them at once; else sharing work only costs.
    [[nodiscard]] static bool isWorthIt(Parallelism parallelism);

    /// Does `there` on the thread and `here` meanwhile on the caller's; returns when both are done.
    /// @throws whatever `here` threw, or else `there`.
    void runBoth(std::function<void()> there, const std::function<void()>& here);

private:
    void begin(std::function<void()> job);
    std::exception_ptr ended();
    void work();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::function<void()> m_job; ///< under way, or none
    std::exception_ptr m_error;  ///< of the last job
    bool m_isEnding = false;
    std::thread m_thread; ///< last, as it uses the others
};

} // namespace quillbox
