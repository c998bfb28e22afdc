#include "Platform/FileWorker.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <future>
#include <thread>
#include <vector>

namespace quillbox {
namespace {

using namespace std::chrono_literals;

TEST(FileWorker, DoesWorkInTheOrderInWhichItCame)
{
    std::vector<int> done;
    for (int number = 0; number < 50; ++number)
        FileWorker::run([&done, number] { done.push_back(number); });
    ASSERT_TRUE(FileWorker::finish(1min));
    ASSERT_EQ(done.size(), 50U);
    EXPECT_TRUE(std::ranges::is_sorted(done));
}

TEST(FileWorker, WaitsForWorkThatTakesNoTime)
{
    const auto caller = std::this_thread::get_id();
    auto worker = caller;
    while (!FileWorker::run([&worker] { worker = std::this_thread::get_id(); })) // on a machine too busy for it
        ASSERT_TRUE(FileWorker::finish(1min));
    EXPECT_NE(worker, caller);
}

TEST(FileWorker, DoesNotWaitForADiskThatHangs)
{
    std::promise<void> answer;
    std::vector<int> done;
    EXPECT_FALSE(FileWorker::run([&] {
        answer.get_future().wait();
        done.push_back(1);
    }));
    EXPECT_FALSE(FileWorker::finish(1ms));
    const auto before = std::chrono::steady_clock::now();
    constexpr int count = 1000;
    for (int number = 0; number < count; ++number)
        EXPECT_FALSE(FileWorker::run([&] { done.push_back(2); }));
    EXPECT_LT(std::chrono::steady_clock::now() - before, FileWorker::patience * count / 2) << "it has waited once";
    answer.set_value();
    ASSERT_TRUE(FileWorker::finish(1min));
    EXPECT_EQ(done.size(), count + 1U);
    EXPECT_EQ(done.front(), 1);
}

} // namespace
} // namespace quillbox
