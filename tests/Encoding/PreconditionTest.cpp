#include "Encoding/Precondition.h"

#include <gtest/gtest.h>

#include <csignal>
#include <limits>

namespace quillbox {
namespace {

constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();

TEST(Precondition, AKeptRuleHasNoEffect)
{
    precondition(true, "one is one");
}

TEST(PreconditionDeathTest, ABrokenRuleEndsTheProcessInEveryBuildType)
{
    EXPECT_EXIT(precondition(false, "one is two"), testing::KilledBySignal(SIGABRT),
        "broken invariant: one is two .*PreconditionTest.cpp");
}

TEST(Precondition, CheckedArithmeticGivesTheOrdinaryResultUpToTheLimits)
{
    EXPECT_EQ(checkedMul(std::int64_t{-3}, 7), -21);
    EXPECT_EQ(checkedMul(most, 1), most);
    EXPECT_EQ(checkedMul(least, 1), least);
    EXPECT_EQ(checkedMul(std::int64_t{0}, most), 0);
    EXPECT_EQ(checkedAdd(most - 1, 1), most);
    EXPECT_EQ(checkedAdd(least + 1, -1), least);
    EXPECT_EQ(checkedAdd(std::int32_t{2}, 3), 5);
}

TEST(PreconditionDeathTest, AnOverflowingProductEndsTheProcess)
{
    EXPECT_DEATH((void)checkedMul(most, 2), "a product fits");
    EXPECT_DEATH((void)checkedMul(least, -1), "a product fits");
    EXPECT_DEATH((void)checkedMul(std::int32_t{1 << 30}, 2), "a product fits");
}

TEST(PreconditionDeathTest, AnOverflowingSumEndsTheProcess)
{
    EXPECT_DEATH((void)checkedAdd(most, 1), "a sum fits");
    EXPECT_DEATH((void)checkedAdd(least, -1), "a sum fits");
}

} // namespace
} // namespace quillbox
