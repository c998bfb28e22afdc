#include "App/CommandLine/TerminationSignals.h"

#include "App/CommandLine/CoreApplication.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include <csignal>

namespace quillbox {
namespace {

class TerminationSignalsTest : public testing::Test {
protected:
    void TearDown() override { std::signal(SIGHUP, SIG_DFL); }

    /// How often `request` reports what has been sent by now.
    static int receivedBy(TerminationSignals& request)
    {
        int count = 0;
        QObject context; // the connection ends with it
        QObject::connect(&request, &TerminationSignals::received, &context, [&count] { ++count; });
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
        return count;
    }

private:
    CoreApplication m_application;
};

TEST_F(TerminationSignalsTest, ReportsEachOfTheSignalsThatEndAProgram)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        TerminationSignals request;
        std::raise(signal);
        EXPECT_EQ(receivedBy(request), 1) << signal;
    }
}

TEST_F(TerminationSignalsTest, ReportsNothingWhereNothingWasSent)
{
    TerminationSignals request;
    EXPECT_EQ(receivedBy(request), 0);
}

TEST_F(TerminationSignalsTest, ForgetsWhatAnEarlierOneReceived)
{
    {
        TerminationSignals request;
        std::raise(SIGINT);
    }
    TerminationSignals request;
    EXPECT_EQ(receivedBy(request), 0);
    std::raise(SIGINT);
    EXPECT_EQ(receivedBy(request), 1);
}

TEST_F(TerminationSignalsTest, LeavesAHangUpIgnoredWhereItWasIgnored)
{
    std::signal(SIGHUP, SIG_IGN);
    TerminationSignals request;
    std::raise(SIGHUP);
    EXPECT_EQ(receivedBy(request), 0);
}

TEST_F(TerminationSignalsTest, TakesAnInterruptEvenInABackgroundJobThatIgnoredIt)
{
    std::signal(SIGINT, SIG_IGN);
    {
        TerminationSignals request;
        std::raise(SIGINT);
        EXPECT_EQ(receivedBy(request), 1);
    }
    EXPECT_EQ(std::signal(SIGINT, SIG_DFL), SIG_IGN) << "as it was before";
}

using TerminationSignalsDeathTest = TerminationSignalsTest;

TEST_F(TerminationSignalsDeathTest, EndsTheProcessAtTheSecondSignal)
{
    EXPECT_EXIT(
        {
            TerminationSignals request;
            std::raise(SIGINT);
            std::raise(SIGTERM);
        },
        testing::KilledBySignal(SIGTERM), "");
}

} // namespace
} // namespace quillbox
