#include "App/CommandLine/StopRequest.h"

#include "App/CommandLine/CoreApplication.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include <csignal>

namespace quillbox {
namespace {

class StopRequestTest : public testing::Test {
protected:
    void TearDown() override { std::signal(SIGHUP, SIG_DFL); }

    /// How often `request` reports what has been sent by now.
    static int receivedBy(StopRequest& request)
    {
        int count = 0;
        QObject context; // the connection ends with it
        QObject::connect(&request, &StopRequest::received, &context, [&count] { ++count; });
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
        return count;
    }

private:
    CoreApplication m_application;
};

TEST_F(StopRequestTest, ReportsEachOfTheSignalsThatEndAProgram)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        StopRequest request;
        std::raise(signal);
        EXPECT_EQ(receivedBy(request), 1) << signal;
    }
}

TEST_F(StopRequestTest, ReportsNothingWhereNothingWasSent)
{
    StopRequest request;
    EXPECT_EQ(receivedBy(request), 0);
}

TEST_F(StopRequestTest, ForgetsWhatAnEarlierOneReceived)
{
    {
        StopRequest request;
        std::raise(SIGINT);
    }
    StopRequest request;
    EXPECT_EQ(receivedBy(request), 0);
    std::raise(SIGINT);
    EXPECT_EQ(receivedBy(request), 1);
}

TEST_F(StopRequestTest, LeavesAHangUpIgnoredWhereItWasIgnored)
{
    std::signal(SIGHUP, SIG_IGN);
    StopRequest request;
    std::raise(SIGHUP);
    EXPECT_EQ(receivedBy(request), 0);
}

TEST_F(StopRequestTest, HeedsAnInterruptEvenInABackgroundJobThatIgnoredIt)
{
    std::signal(SIGINT, SIG_IGN);
    {
        StopRequest request;
        std::raise(SIGINT);
        EXPECT_EQ(receivedBy(request), 1);
    }
    EXPECT_EQ(std::signal(SIGINT, SIG_DFL), SIG_IGN) << "as it was before";
}

using StopRequestDeathTest = StopRequestTest;

TEST_F(StopRequestDeathTest, EndsTheProcessAtTheSecondSignal)
{
    EXPECT_EXIT(
        {
            StopRequest request;
            std::raise(SIGINT);
            std::raise(SIGTERM);
        },
        testing::KilledBySignal(SIGTERM), "");
}

} // namespace
} // namespace quillbox
