#include "Platform/Detach.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace quillbox {
namespace {

QCoro::Task<> setting(bool& isSet)
{
    isSet = true;
    co_return;
}

QCoro::Task<> failing()
{
    throw std::runtime_error("out of luck");
    co_return;
}

QCoro::Task<> failingOddly()
{
    throw 42; // NOLINT(hicpp-exception-baseclass): that is the point
    co_return;
}

TEST(Detach, LetsTheTaskRun)
{
    bool isSet = false;
    detach(setting(isSet));
    EXPECT_TRUE(isSet);
}

TEST(DetachDeathTest, EndsTheProcessWithTheWordsOfAnException)
{
    EXPECT_DEATH(detach(failing()), "out of luck");
}

TEST(DetachDeathTest, EndsTheProcessWithAnExceptionWithoutWords)
{
    EXPECT_DEATH(detach(failingOddly()), "handles its errors");
}

} // namespace
} // namespace quillbox
