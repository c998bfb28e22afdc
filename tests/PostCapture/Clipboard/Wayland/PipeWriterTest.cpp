#include "PostCapture/Clipboard/Wayland/PipeWriter.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QPointer>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

namespace quillbox {
namespace {

constexpr qsizetype morePiecesThanAPipeHolds = 1'000'000;

QByteArray someBytes()
{
    QByteArray bytes(morePiecesThanAPipeHolds, '\0');
    for (qsizetype i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(i % 251);
    return bytes;
}

class PipeWriterTest : public testing::Test {
protected:
    PipeWriterTest()
    {
        (void)std::signal(SIGPIPE, SIG_DFL); // as a program begins
        std::array<int, 2> ends{-1, -1};
        EXPECT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
        reader = FileDescriptor(ends[0]);
        EXPECT_EQ(::fcntl(reader.number(), F_SETFL, O_NONBLOCK), 0);
        writer = new PipeWriter(FileDescriptor(ends[1]), someBytes(), &parent);
    }

    /// What is in the pipe now. @return whether more may come
    bool read(QByteArray& bytes) const
    {
        std::array<char, 4096> piece{};
        for (;;) {
            const auto count = ::read(reader.number(), piece.data(), piece.size());
            if (count <= 0)
                return count < 0 && errno == EAGAIN;
            bytes.append(piece.data(), count);
        }
    }

    static void turnTheEventLoop()
    {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    int argumentCount = 0;
    QCoreApplication application{argumentCount, nullptr};
    QObject parent;
    FileDescriptor reader;
    QPointer<PipeWriter> writer;
};

TEST_F(PipeWriterTest, WritesEverythingAndClosesThePipe)
{
    QByteArray bytes;
    while (read(bytes))
        turnTheEventLoop();
    EXPECT_EQ(bytes, someBytes());
    turnTheEventLoop();
    EXPECT_FALSE(writer);
}

TEST_F(PipeWriterTest, GoesOnTurningTheEventLoopWhileNobodyReads)
{
    for (int turn = 0; turn < 10; ++turn)
        turnTheEventLoop();
    EXPECT_TRUE(writer);
}

TEST_F(PipeWriterTest, SurvivesAReaderThatGoesAway)
{
    turnTheEventLoop(); // the pipe is full
    reader = FileDescriptor();
    while (writer)
        turnTheEventLoop();
}

TEST_F(PipeWriterTest, LeavesTheSignalOfABrokenPipeToOthers)
{
    reader = FileDescriptor();
    while (writer)
        turnTheEventLoop();
    sigset_t blocked;
    sigset_t pending;
    ASSERT_EQ(::pthread_sigmask(SIG_BLOCK, nullptr, &blocked), 0);
    ASSERT_EQ(::sigpending(&pending), 0);
    EXPECT_EQ(::sigismember(&blocked, SIGPIPE), 0);
    EXPECT_EQ(::sigismember(&pending, SIGPIPE), 0);
}

} // namespace
} // namespace quillbox
