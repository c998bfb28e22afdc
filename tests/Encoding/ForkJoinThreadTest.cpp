#include "Encoding/ForkJoinThread.h"

#include <gtest/gtest.h>

#include <atomic>
#include <new>
#include <stdexcept>
#include <thread>

namespace quillbox {
namespace {

TEST(ForkJoinThread, DoesOnePartHereAndTheOtherOnOneThreadOfItsOwn)
{
    ForkJoinThread side;
    std::thread::id here;
    std::thread::id first;
    std::thread::id second;
    side.runBoth([&first] { first = std::this_thread::get_id(); }, [&here] { here = std::this_thread::get_id(); });
    side.runBoth([&second] { second = std::this_thread::get_id(); }, [] {});
    EXPECT_EQ(here, std::this_thread::get_id());
    EXPECT_NE(first, here);
    EXPECT_EQ(first, second);
}

TEST(ForkJoinThread, RunsBothPartsAtOnce)
{
    ForkJoinThread side;
    std::atomic<bool> isThere = false;
    std::atomic<bool> isHere = false;
    side.runBoth(
        [&] {
            isThere = true;
            isThere.notify_one();
            isHere.wait(false);
        },
        [&] {
            isThere.wait(false);
            isHere = true;
            isHere.notify_one();
        });
    EXPECT_TRUE(isThere && isHere);
}

TEST(ForkJoinThread, HandsOverWhatThePartThereThrowsOnce)
{
    ForkJoinThread side;
    EXPECT_THROW(side.runBoth([] { throw std::runtime_error("no"); }, [] {}), std::runtime_error);
    EXPECT_NO_THROW(side.runBoth([] {}, [] {}));
}

TEST(ForkJoinThread, WaitsForThePartThereWhereTheOneHereFails)
{
    ForkJoinThread side;
    std::atomic<bool> hasFailed = false;
    bool isDone = false;
    const auto fail = [&] {
        hasFailed = true;
        hasFailed.notify_one();
        throw std::bad_alloc();
    };
    const auto outlast = [&] {
        hasFailed.wait(false);
        isDone = true;
        throw std::runtime_error("a second error");
    };
    EXPECT_THROW(side.runBoth(outlast, fail), std::bad_alloc);
    EXPECT_TRUE(isDone);
    EXPECT_NO_THROW(side.runBoth([] {}, [] {}));
}

TEST(ForkJoinThread, GoesWithoutEverHavingHadAJob)
{
    const ForkJoinThread side;
}

} // namespace
} // namespace quillbox
