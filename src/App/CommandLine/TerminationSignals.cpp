#include "App/CommandLine/TerminationSignals.h"

#include "Encoding/Precondition.h"

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <sys/eventfd.h>
#include <system_error>
#include <unistd.h>

namespace quillbox {
namespace {

/// The event of the object that there is, or -1: all that a signal handler may do is write to it.
std::atomic<int> eventToRaise = -1;
std::atomic<int> receivedCount = 0;
static_assert(std::atomic<int>::is_always_lock_free, "a signal handler can't wait for a lock");

extern "C" void passOn(int signal)
{
    if (receivedCount.fetch_add(1) > 0) {
        (void)std::signal(signal, SIG_DFL); // a valid signal; nothing to go back to
        (void)std::raise(signal);           // takes effect when this handler returns
        return;
    }
    const int savedError = errno;
    const std::uint64_t one = 1;
    [[maybe_unused]] const ssize_t written = ::write(eventToRaise, &one, sizeof one); // fails only at 2^64 − 1
    errno = savedError;
}

} // namespace

TerminationSignals::TerminationSignals()
    : m_event(::eventfd(0, EFD_CLOEXEC))
{
    if (m_event.number() < 0)
        throw std::system_error(errno, std::generic_category(), "a file descriptor is needed");
    precondition(eventToRaise.exchange(m_event.number()) < 0, "one object at a time waits for the signals");
    receivedCount = 0;
    m_notifier.emplace(m_event.number(), QSocketNotifier::Read);
    connect(&*m_notifier, &QSocketNotifier::activated, this, [this] {
        m_notifier->setEnabled(false); // it stays raised
        Q_EMIT received();
    });
    struct sigaction action { };
    action.sa_handler = passOn;
    action.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < endingSignals.size(); ++i) {
        ::sigaction(endingSignals[i], nullptr, &m_before[i]);
        // nohup stays in force. A shell script's background job ignores SIGINT too, but there it is sent on purpose.
        if (endingSignals[i] != SIGHUP || m_before[i].sa_handler != SIG_IGN)
            ::sigaction(endingSignals[i], &action, nullptr);
    }
}

TerminationSignals::~TerminationSignals()
{
    for (std::size_t i = 0; i < endingSignals.size(); ++i)
        ::sigaction(endingSignals[i], &m_before[i], nullptr);
    eventToRaise = -1;
}

void leaveEndingSignalsToMainThread()
{
    sigset_t blocked;
    sigemptyset(&blocked);
    for (const int signal : endingSignals)
        sigaddset(&blocked, signal);
    ::pthread_sigmask(SIG_BLOCK, &blocked, nullptr);
}

} // namespace quillbox

#include "moc_TerminationSignals.cpp"
