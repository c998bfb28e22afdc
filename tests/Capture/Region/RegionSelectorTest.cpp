#include "Capture/Region/RegionSelector.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QTemporaryFile>

#include <array>
#include <vector>

namespace quillbox {
namespace {

TEST(RegionSelector, HasNoRegionAtOnceWhereThereIsNoScreen)
{
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    ASSERT_GT(file.write(R"({ "screens": [] })"), 0);
    ASSERT_TRUE(file.flush());
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + file.fileName().toUtf8());
    std::array name{'t', '\0'};
    std::array arguments{name.data(), static_cast<char*>(nullptr)};
    int count = 1;
    const QGuiApplication application(count, arguments.data());
    ASSERT_EQ(QGuiApplication::primaryScreen(), nullptr);

    std::vector<RegionSelector::Outcome> results;
    RegionSelector().present([&results](const RegionSelector::Outcome& outcome) { results.push_back(outcome); });
    ASSERT_EQ(results.size(), 1U);
    EXPECT_TRUE(std::holds_alternative<RegionSelector::Cancelled>(results.front()));
}

} // namespace
} // namespace quillbox
