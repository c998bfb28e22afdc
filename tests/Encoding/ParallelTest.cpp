#include "Encoding/Parallel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <vector>

namespace quillbox {
namespace {

class ParallelFor : public testing::TestWithParam<int> { };

TEST_P(ParallelFor, VisitsEveryItemExactlyOnce)
{
    for (const std::int64_t count : {0, 1, 2, 7, 1000}) {
        std::vector<std::atomic<int>> visits(static_cast<std::size_t>(count));
        parallelFor({GetParam()}, count, [&](std::int64_t item, int) { ++visits.at(static_cast<std::size_t>(item)); });
        for (const auto& visit : visits)
            EXPECT_EQ(visit, 1);
    }
}

TEST_P(ParallelFor, NumbersItsWorkersBelowTheirCount)
{
    const int workers = workerCount({GetParam()}, 500);
    std::atomic<bool> allInRange = true;
    parallelFor({GetParam()}, 500, [&](std::int64_t, int worker) {
        if (worker < 0 || worker >= workers)
            allInRange = false;
    });
    EXPECT_TRUE(allInRange);
}

TEST_P(ParallelFor, OneWorkerIsNeverTwoThreadsAtOnce)
{
    std::vector<std::atomic<int>> active(static_cast<std::size_t>(workerCount({GetParam()}, 500)));
    std::atomic<bool> alone = true;
    parallelFor({GetParam()}, 500, [&](std::int64_t, int worker) {
        auto& mine = active.at(static_cast<std::size_t>(worker));
        if (++mine != 1)
            alone = false;
        --mine;
    });
    EXPECT_TRUE(alone);
}

TEST_P(ParallelFor, PassesOnWhatACallThrew)
{
    const auto throwAtTen = [](std::int64_t item, int) {
        if (item == 10)
            throw std::out_of_range("ten");
    };
    EXPECT_THROW(parallelFor({GetParam()}, 100, throwAtTen), std::out_of_range);
}

TEST_P(ParallelFor, BeginsNothingNewAfterAThrow)
{
    std::atomic<int> calls = 0;
    const auto throwAlways = [&](std::int64_t, int) {
        ++calls;
        throw std::runtime_error("each call fails");
    };
    EXPECT_THROW(parallelFor({GetParam()}, 10'000, throwAlways), std::runtime_error);
    EXPECT_LE(calls, workerCount({GetParam()}, 10'000)) << "each worker stops at its first failure";
}

INSTANTIATE_TEST_SUITE_P(Threads, ParallelFor, testing::Values(0, 1, 2, 3, 8));

TEST(WorkerCount, IsAtLeastOneAndAtMostTheItemsOrTheWish)
{
    EXPECT_EQ(workerCount({4}, 0), 1);
    EXPECT_EQ(workerCount({4}, 3), 3);
    EXPECT_EQ(workerCount({4}, 100), 4);
    EXPECT_EQ(workerCount({1}, 100), 1);
    EXPECT_GE(workerCount({}, 100), 1);
}

} // namespace
} // namespace quillbox
