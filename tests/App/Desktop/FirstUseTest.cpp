#include "App/Desktop/FirstUse.h"

#include "Platform/FileWorker.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

namespace quillbox {
namespace {

class FirstUseOfAUser : public testing::Test {
protected:
    [[nodiscard]] std::filesystem::path path() const { return m_folder.path() / "first-use"; }
    [[nodiscard]] std::unique_ptr<FirstUse> start() const
    {
        EXPECT_TRUE(FileWorker::finish(std::chrono::minutes(1))); // what the one before has written is there
        auto use = std::make_unique<FirstUse>(QString::fromStdString(path().string()));
        use->begin();
        return use;
    }

private:
    support::TemporaryFolder m_folder;
};

TEST_F(FirstUseOfAUser, BeginsWithTheIntroduction)
{
    const auto use = start();
    EXPECT_TRUE(use->isFirstStart());
    EXPECT_TRUE(use->isIntroducing());
}

TEST_F(FirstUseOfAUser, GoesOnIntroducingUntilItHasBeenRead)
{
    (void)start();
    const auto use = start();
    EXPECT_FALSE(use->isFirstStart());
    EXPECT_TRUE(use->isIntroducing());
}

TEST_F(FirstUseOfAUser, IsOverForGoodOnceItHasBeenRead)
{
    const auto use = start();
    int announcements = 0;
    QObject::connect(use.get(), &FirstUse::ended, use.get(), [&] { ++announcements; });
    use->end();
    use->end();
    EXPECT_FALSE(use->isIntroducing());
    EXPECT_EQ(announcements, 1);
    EXPECT_FALSE(start()->isIntroducing());
    EXPECT_FALSE(start()->isFirstStart());
}

TEST_F(FirstUseOfAUser, IsOverWithinTheRunWhereNothingCanBeWritten)
{
    FirstUse use("/proc/nowhere/first-use");
    use.begin();
    use.end();
    EXPECT_FALSE(use.isIntroducing());
    EXPECT_FALSE(std::filesystem::exists("/proc/nowhere"));
}

TEST_F(FirstUseOfAUser, IsOverWhereTheFileSaysAnythingElse)
{
    for (const std::string text : {"", "introducing", "introducing\n\n", "from a later version\n"}) {
        support::writeFile(path().string(), std::vector<std::uint8_t>(text.begin(), text.end()));
        EXPECT_FALSE(start()->isIntroducing()) << text;
        EXPECT_EQ(support::readFile(path().string()), text) << "and stays as it is";
    }
}

TEST_F(FirstUseOfAUser, LeavesNothingBesideItsFile)
{
    start()->end();
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(path().parent_path()), {}), 1);
}

} // namespace
} // namespace quillbox
