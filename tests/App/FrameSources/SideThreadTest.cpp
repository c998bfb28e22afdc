#include "App/FrameSources/SideThread.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <thread>

namespace quillbox {
namespace {

TEST(SideThread, DoesOneJobAfterAnotherOnOneThread)
{
    SideThread side;
    std::thread::id first;
    std::thread::id second;
    side.begin([&first] { first = std::this_thread::get_id(); });
    side.wait();
    side.begin([&second] { second = std::this_thread::get_id(); });
    side.wait();
    EXPECT_NE(first, std::this_thread::get_id());
    EXPECT_EQ(first, second);
}

TEST(SideThread, HandsOverWhatAJobThrowsOnce)
{
    SideThread side;
    side.begin([] { throw std::runtime_error("no"); });
    EXPECT_THROW(side.wait(), std::runtime_error);
    side.begin([] {});
    EXPECT_NO_THROW(side.wait());
}

TEST(SideThread, FinishesTheJobUnderWayBeforeItGoes)
{
    bool isDone = false;
    {
        SideThread side;
        side.begin([&isDone] { isDone = true; });
    }
    EXPECT_TRUE(isDone);
}

TEST(SideThread, GoesWithoutEverHavingHadAJob)
{
    const SideThread side;
}

TEST(SideThreadDeathTest, RefusesASecondJobBeforeTheFirstWasWaitedFor)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    SideThread side;
    side.begin([] { throw std::runtime_error("no"); });
    EXPECT_DEATH(side.begin([] {}), "waited for before the next begins");
    EXPECT_THROW(side.wait(), std::runtime_error);
}

} // namespace
} // namespace quillbox
