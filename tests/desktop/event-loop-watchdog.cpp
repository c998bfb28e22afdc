// Preloaded into the application by tests: writes into the file that EVENT_LOOP_REPORT names for how long, at most, the
// main thread did not come back to its event loop, in milliseconds, how much of that it computed, and where it was. A
// busy machine is not the application's fault: the time in which the thread could have run but had no processor does
// not count, nor does that in which the whole process had none, nor that in which the thread slept, maybe until another
// process answers, while any process of the machine waited for a processor, as the kernel counts it in
// /proc/pressure/cpu or the file that CPU_PRESSURE names. The time before the loop turns for the first time does not
// count, either, nor does what is after it turned for the last time.
#include <QCoreApplication>
#include <QObject>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <execinfo.h>
#include <fcntl.h>
#include <memory>
#include <mutex>
#include <pthread.h>
#include <string>
#include <thread>
#include <unistd.h>

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using std::chrono::nanoseconds;

constexpr auto pause = 20ms; // between two questions
constexpr auto step = 5ms;   // of the wait for an answer; one that takes longer than twice that had no processor
constexpr auto limit = 250ms;

int report = -1;
int pressure = -1;

/// What this library was told, for nobody else: what is started from here does without it.
__attribute__((constructor)) void readEnvironment()
{
    ::unsetenv("LD_PRELOAD");
    if (const char* const path = std::getenv("EVENT_LOOP_REPORT"))
        report = ::open(path, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    const char* const path = std::getenv("CPU_PRESSURE");
    pressure = ::open(path != nullptr ? path : "/proc/pressure/cpu", O_RDONLY | O_CLOEXEC);
}

void writeStack(int)
{
    std::array<void*, 64> frames{};
    const int count = ::backtrace(frames.data(), static_cast<int>(frames.size()));
    (void)::lseek(report, 0, SEEK_END);
    ::backtrace_symbols_fd(frames.data(), count, report);
}

/// Asks the main thread again and again for a sign of life.
class Watchdog {
public:
    Watchdog()
        : m_main(::pthread_self())
        , m_schedule(
              ::open(("/proc/self/task/" + std::to_string(::gettid()) + "/schedstat").c_str(), O_RDONLY | O_CLOEXEC))
    {
        std::array<void*, 1> frame{};
        (void)::backtrace(frame.data(), 1); // loads what it needs, which no signal's handler may
        struct sigaction action { };
        action.sa_handler = &writeStack;
        action.sa_flags = SA_RESTART;
        (void)::sigaction(SIGUSR2, &action, nullptr);
        m_thread = std::thread([this] { watch(); });
    }
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;
    ~Watchdog()
    {
        {
            const std::scoped_lock lock(m_mutex);
            m_isEnding = true;
            m_changed.notify_all();
        }
        m_thread.join();
        ::close(m_schedule);
    }

private:
    void watch()
    {
        sigset_t all;
        sigfillset(&all);
        (void)::pthread_sigmask(SIG_BLOCK, &all, nullptr); // those are the application's
        bool hasTurned = false;
        std::unique_lock lock(m_mutex);
        while (!m_isEnding) {
            const auto question = ++m_question;
            lock.unlock();
            QMetaObject::invokeMethod(
                &m_receiver, [this, question] { answer(question); }, Qt::QueuedConnection);
            lock.lock();
            const Times before = now();
            nanoseconds away{0};
            bool isLong = false;
            while (!m_isEnding && m_answer != question) {
                const auto begin = Clock::now();
                m_changed.wait_for(lock, step);
                away += std::min<nanoseconds>(Clock::now() - begin, 2 * step);
                if (hasTurned && !isLong && blocked(away, before) > limit) {
                    isLong = true; // whether it comes back will be seen
                    (void)::pthread_kill(m_main, SIGUSR2);
                }
            }
            if (hasTurned && m_answer == question)
                note(blocked(away, before), computed() - before.computed);
            hasTurned = hasTurned || m_answer == question;
            m_changed.wait_for(lock, pause, [this] { return m_isEnding; });
        }
    }

    void answer(std::int64_t question)
    {
        const std::scoped_lock lock(m_mutex);
        m_answer = question;
        m_changed.notify_all();
    }

    struct Times {
        nanoseconds waited;   ///< the main thread, for a processor
        nanoseconds computed; ///< by the main thread
        nanoseconds pressed;  ///< some thread of the machine waited for a processor
    };
    [[nodiscard]] Times now() const { return {.waited = waited(), .computed = computed(), .pressed = pressed()}; }

    /// For how long the main thread has been away by its own doing, of `away` since `before`.
    [[nodiscard]] nanoseconds blocked(nanoseconds away, const Times& before) const
    {
        const Times after = now();
        const nanoseconds computing = after.computed - before.computed;
        const nanoseconds asleep = away - (after.waited - before.waited) - computing - (after.pressed - before.pressed);
        return computing + std::max(asleep, nanoseconds(0));
    }

    /// The beginning of the report; stacks follow.
    void note(nanoseconds away, nanoseconds computing)
    {
        if (away <= m_longest)
            return;
        m_longest = away;
        std::array<char, 64> line{};
        const int length = std::snprintf(line.data(), line.size(), "%8.1f ms away, %8.1f ms of it computing\n",
            std::chrono::duration<double, std::milli>(away).count(),
            std::chrono::duration<double, std::milli>(computing).count());
        (void)!::pwrite(report, line.data(), static_cast<std::size_t>(length), 0);
    }

    /// For how long the main thread has waited for a processor so far.
    [[nodiscard]] nanoseconds waited() const
    {
        std::array<char, 96> text{};
        if (::pread(m_schedule, text.data(), text.size() - 1, 0) <= 0)
            return nanoseconds(0);
        long long running = 0;
        long long waiting = 0;
        (void)std::sscanf(text.data(), "%lld %lld", &running, &waiting);
        return nanoseconds(waiting);
    }

    /// For how long, so far, some thread of the machine has waited for a processor.
    [[nodiscard]] static nanoseconds pressed()
    {
        std::array<char, 256> text{};
        if (::pread(pressure, text.data(), text.size() - 1, 0) <= 0)
            return nanoseconds(0);
        const char* const total = std::strstr(text.data(), "total=");
        return std::chrono::microseconds(total != nullptr ? std::atoll(total + 6) : 0);
    }

    [[nodiscard]] nanoseconds computed() const
    {
        clockid_t clock{};
        struct timespec time { };
        if (::pthread_getcpuclockid(m_main, &clock) != 0 || ::clock_gettime(clock, &time) != 0)
            return nanoseconds(0);
        return std::chrono::seconds(time.tv_sec) + nanoseconds(time.tv_nsec);
    }

    const pthread_t m_main;
    const int m_schedule;
    QObject m_receiver; // the main thread's
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::int64_t m_question = 0;
    std::int64_t m_answer = 0;
    bool m_isEnding = false;
    nanoseconds m_longest{-1};
    std::thread m_thread;
};

std::unique_ptr<Watchdog> watchdog;

void begin()
{
    if (report < 0)
        return;
    watchdog = std::make_unique<Watchdog>();
    qAddPostRoutine([] { watchdog.reset(); });
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(begin)
