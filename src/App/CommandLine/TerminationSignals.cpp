#include "App/CommandLine/TerminationSignals.h"

#include "Encoding/Precondition.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace quillbox {
namespace {

/// A pipe to this very process: all that a signal handler may do is write to it.
std::array<int, 2> selfPipe{-1, -1};
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
    [[maybe_unused]] const ssize_t written = ::write(selfPipe[1], "", 1); // an empty pipe takes a byte
    errno = savedError;
}

} // namespace

TerminationSignals::TerminationSignals()
{
    precondition(selfPipe[0] < 0, "one object at a time waits for the signals");
    if (::pipe2(selfPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        throw std::system_error(errno, std::generic_category(), "a pipe is needed");
    receivedCount = 0;
    m_notifier.emplace(selfPipe[0], QSocketNotifier::Read);
    connect(&*m_notifier, &QSocketNotifier::activated, this, [this] {
        m_notifier->setEnabled(false); // one byte, one signal
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
    m_notifier.reset();
    for (int& end : selfPipe) {
        ::close(end);
        end = -1;
    }
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
