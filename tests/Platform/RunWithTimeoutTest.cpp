#include "Platform/RunWithTimeout.h"

#include "Platform/QtArguments.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QThread>

#include <future>
#include <optional>
#include <vector>

namespace quillbox {
namespace {

using namespace std::chrono_literals;

class RunWithTimeoutTest : public testing::Test {
protected:
    template <typename T> static T resultOf(const QFuture<T>& future)
    {
        while (!future.isFinished())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
        return future.result();
    }

    QCoreApplication application{QtArguments::count, QtArguments::values};
};

TEST_F(RunWithTimeoutTest, GivesTheAnswerOfAnotherThread)
{
    const auto answer = resultOf(runWithTimeout<QThread*>(10min, [] { return QThread::currentThread(); }));
    ASSERT_TRUE(answer);
    EXPECT_NE(*answer, QThread::currentThread());
}

TEST_F(RunWithTimeoutTest, GivesNoneOnceTheTimeIsOver)
{
    std::promise<void> release;
    std::promise<void> done;
    const auto answer = resultOf(runWithTimeout<int>(1ms, [&release, &done] {
        release.get_future().wait();
        done.set_value();
        return 1;
    }));
    EXPECT_FALSE(answer);
    release.set_value();
    done.get_future().wait();
}

TEST_F(RunWithTimeoutTest, AQuestionDoesNotWaitForOthers)
{
    std::promise<void> release;
    const std::shared_future<void> released = release.get_future().share();
    std::vector<QFuture<std::optional<int>>> hanging;
    for (int i = 0; i < 12; ++i) {
        hanging.push_back(runWithTimeout<int>(10min, [released] {
            released.wait();
            return 1;
        }));
    }
    EXPECT_EQ(resultOf(runWithTimeout<int>(10min, [] { return 2; })), 2);
    release.set_value();
    for (const auto& future : hanging)
        EXPECT_EQ(resultOf(future), 1);
}

} // namespace
} // namespace quillbox
