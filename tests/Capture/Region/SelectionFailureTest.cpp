// Without a session bus: see main().
#include "Capture/Region/RegionSelector.h"

#include "support/Await.h"

#include <gtest/gtest.h>

#include <QApplication>

#include <optional>
#include <stdexcept>

namespace quillbox {
namespace {

/// What comes of a selection with this back end.
RegionSelector::Outcome outcomeWith(const char* backend)
{
    qputenv("QUILLBOX_CAPTURE_BACKEND", backend);
    std::optional<RegionSelector::Outcome> result;
    RegionSelector selector;
    selector.present([&result](const RegionSelector::Outcome& outcome) {
        EXPECT_FALSE(result) << "once";
        result = outcome;
    });
    EXPECT_TRUE(test::eventually([&] { return result.has_value(); }));
    return result.value_or(RegionSelector::Cancelled{});
}

TEST(SelectionFailure, SaysThatCaptureIsSwitchedOff)
{
    const auto outcome = outcomeWith("none");
    const auto* const error = std::get_if<CaptureError>(&outcome);
    ASSERT_NE(error, nullptr);
    EXPECT_EQ(error->reason(), CaptureError::Reason::Unavailable);
    EXPECT_STREQ(error->what(), "Screen capture is switched off by QUILLBOX_CAPTURE_BACKEND");
}

TEST(SelectionFailure, SaysWhyNoCastCanBeOpened)
{
    const auto outcome = outcomeWith("portal");
    const auto* const error = std::get_if<CaptureError>(&outcome);
    ASSERT_NE(error, nullptr);
    EXPECT_EQ(error->reason(), CaptureError::Reason::Unavailable);
    EXPECT_NE(std::string(error->what()).find("no session bus"), std::string::npos) << error->what();
}

TEST(SelectionFailureDeathTest, LosesNoExceptionThatNobodyExpects)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe"); // there is a display's thread
    qputenv("QUILLBOX_CAPTURE_BACKEND", "portal");
    RegionSelector selector;
    EXPECT_DEATH(selector.present([](const auto&) { throw std::runtime_error("out of luck"); }), "out of luck");
}

} // namespace
} // namespace quillbox

int main(int argc, char** argv)
{
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    const QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
