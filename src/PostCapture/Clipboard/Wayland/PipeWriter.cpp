#include "PostCapture/Clipboard/Wayland/PipeWriter.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <ctime>
#include <utility>

namespace quillbox {
namespace {

/// Much more than a pipe takes at a time; only a file would take it all.
constexpr qsizetype maxAtATime = 1 << 20;

/// write(), without the signal that ends a program that writes to a pipe which nobody reads any more.
ssize_t writeQuietly(int descriptor, const char* data, std::size_t size)
{
    sigset_t brokenPipe;
    sigset_t pending;
    sigset_t blockedBefore;
    ::sigemptyset(&brokenPipe);
    ::sigaddset(&brokenPipe, SIGPIPE);
    ::sigpending(&pending);
    const bool wasPending = ::sigismember(&pending, SIGPIPE) == 1; // somebody else's, and blocked
    ::pthread_sigmask(SIG_BLOCK, &brokenPipe, &blockedBefore);
    const ssize_t written = ::write(descriptor, data, size);
    const int error = errno;
    if (written < 0 && error == EPIPE && !wasPending) { // it has come, to this thread; it must not stay
        const timespec atOnce{};
        while (::sigtimedwait(&brokenPipe, nullptr, &atOnce) < 0 && errno == EINTR) { }
    }
    ::pthread_sigmask(SIG_SETMASK, &blockedBefore, nullptr);
    errno = error;
    return written;
}

} // namespace

PipeWriter::PipeWriter(FileDescriptor pipe, QByteArray data, QObject* parent)
    : QObject(parent)
    , m_pipe(std::move(pipe))
    , m_data(std::move(data))
    , m_notifier(m_pipe.number(), QSocketNotifier::Write)
{
    connect(&m_notifier, &QSocketNotifier::activated, this, &PipeWriter::writeMore);
    const int flags = ::fcntl(m_pipe.number(), F_GETFL);
    if (flags < 0 || ::fcntl(m_pipe.number(), F_SETFL, flags | O_NONBLOCK) < 0)
        end(); // nothing that could be written to
}

void PipeWriter::writeMore()
{
    const qsizetype size = std::min(m_data.size() - m_written, maxAtATime);
    const ssize_t written
        = writeQuietly(m_pipe.number(), m_data.constData() + m_written, static_cast<std::size_t>(size));
    if (written >= 0)
        m_written += written;
    else if (errno != EAGAIN && errno != EINTR)
        end(); // the reader has gone
    if (m_written == m_data.size())
        end();
}

void PipeWriter::end()
{
    m_notifier.setEnabled(false);
    m_pipe = FileDescriptor();
    deleteLater();
}

} // namespace quillbox

#include "moc_PipeWriter.cpp"
