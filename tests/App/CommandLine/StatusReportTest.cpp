#include "App/CommandLine/StatusReport.h"

#include <gtest/gtest.h>

namespace quillbox {
namespace {

TEST(StatusReport, TellsHowLongARecordingHasBeenGoingOn)
{
    const QVariantMap status{{"phase", "recording"}, {"frameCount", 2250LL}, {"elapsedSeconds", 75LL}};
    EXPECT_EQ(StatusReport::humanLine(status), "recording  1:15\n");
    EXPECT_EQ(StatusReport::jsonLine(status),
        R"({"phase":"recording","frameCount":2250,"elapsedSeconds":75})"
        "\n");
}

TEST(StatusReport, TellsNoTimeWhereNothingIsRecorded)
{
    EXPECT_EQ(StatusReport::humanLine({{"phase", "idle"}}), "idle\n");
    EXPECT_EQ(StatusReport::jsonLine({{"phase", "idle"}}), "{\"phase\":\"idle\"}\n");
}

} // namespace
} // namespace quillbox
