#include "Encoding/OrderedPipeline.h"

#include <atomic>
#include <gtest/gtest.h>
#include <stdexcept>
#include <vector>

namespace quillbox {
namespace {

using Squares = OrderedPipeline<std::int64_t, std::int64_t>;

/// Steps that square 0…count−1 and keep the squares.
Squares::Steps squaring(std::int64_t count, std::vector<std::int64_t>& taken)
{
    return {.make
        = [count, next = std::int64_t{0}]() mutable { return next < count ? std::optional(next++) : std::nullopt; },
        .size = [](std::int64_t) { return std::int64_t{1}; },
        .work = [](std::int64_t item, int) { return item * item; },
        .takesFurther =
            [&taken](std::int64_t, std::int64_t&& square) {
                taken.push_back(square);
                return true;
            }};
}

TEST(OrderedPipeline, TakesAllResultsInOrderWithAnyNumberOfThreads)
{
    for (const int threads : {1, 2, 5}) {
        std::vector<std::int64_t> taken;
        Squares(squaring(200, taken), 3).run({threads}, 200);
        ASSERT_EQ(taken.size(), 200U);
        for (std::size_t i = 0; i < taken.size(); ++i)
            EXPECT_EQ(taken[i], static_cast<std::int64_t>(i * i));
    }
}

TEST(OrderedPipeline, HoldsResultsBackUntilThoseBeforeThemAreDone)
{
    std::vector<std::int64_t> taken;
    std::atomic<bool> isSecondDone = false;
    Squares::Steps steps = squaring(20, taken);
    steps.work = [&](std::int64_t item, int) {
        if (item == 0)
            isSecondDone.wait(false);
        if (item == 2) { // whoever did the second one has handed it over
            isSecondDone = true;
            isSecondDone.notify_all();
        }
        return item;
    };
    Squares(steps, 20).run({2}, 20);
    ASSERT_EQ(taken.size(), 20U);
    for (std::size_t i = 0; i < taken.size(); ++i)
        EXPECT_EQ(taken[i], static_cast<std::int64_t>(i));
}

TEST(OrderedPipeline, EndsAtOnceWithoutItems)
{
    std::vector<std::int64_t> taken;
    Squares(squaring(0, taken), 1).run({2}, 1);
    EXPECT_TRUE(taken.empty());
}

TEST(OrderedPipeline, TakesNothingBehindTheResultThatEndsIt)
{
    for (const int threads : {1, 3}) {
        std::vector<std::int64_t> taken;
        Squares::Steps steps = squaring(200, taken);
        steps.takesFurther = [&taken](std::int64_t item, std::int64_t&& square) {
            taken.push_back(square);
            return item < 9;
        };
        Squares(steps, 20).run({threads}, 200);
        EXPECT_EQ(taken.size(), 10U);
    }
}

TEST(OrderedPipeline, MakesNoMoreThanMayWait)
{
    std::vector<std::int64_t> taken;
    std::int64_t made = 0;
    std::atomic<std::int64_t> begun = 0;
    Squares::Steps steps = squaring(100, taken);
    steps.make = [&, make = steps.make] {
        EXPECT_LE(made - begun, 5); // two may have been taken up and not begun
        ++made;
        return make();
    };
    steps.work = [&](std::int64_t item, int) {
        ++begun;
        return item;
    };
    Squares(steps, 4).run({3}, 100);
    EXPECT_EQ(taken.size(), 100U);
}

TEST(OrderedPipeline, GivesWhatAStepThrewToTheCaller)
{
    for (const bool inMake : {true, false}) {
        std::vector<std::int64_t> taken;
        Squares::Steps steps = squaring(100, taken);
        if (inMake)
            steps.make = []() -> std::optional<std::int64_t> {
                throw std::runtime_error("no more memory");
            };
        else
            steps.work = [](std::int64_t, int) -> std::int64_t {
                throw std::runtime_error("no more memory");
            };
        EXPECT_THROW(Squares(steps, 4).run({2}, 100), std::runtime_error);
    }
}

TEST(OrderedPipeline, LeavesNoThreadWaitingForWhatWasNotMade)
{
    std::vector<std::int64_t> taken;
    std::atomic<bool> isBegun = false;
    std::atomic<bool> hasFailed = false;
    const auto set = [](std::atomic<bool>& flag) {
        flag = true;
        flag.notify_all();
    };
    Squares::Steps steps = squaring(2, taken);
    steps.make = [&, make = steps.make]() -> std::optional<std::int64_t> {
        auto item = make();
        if (item == 0)
            return item;
        isBegun.wait(false);
        set(hasFailed);
        throw std::runtime_error("no more memory");
    };
    steps.work = [&](std::int64_t item, int) {
        set(isBegun);
        hasFailed.wait(false);
        return item;
    };
    EXPECT_THROW(Squares(steps, 4).run({2}, 2), std::runtime_error);
}

} // namespace
} // namespace quillbox
