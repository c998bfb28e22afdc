#include "Capture/CaptureRegion.h"

#include <gtest/gtest.h>

#include <limits>

namespace quillbox {
namespace {

TEST(CaptureRegion, NormalizingRaisesExtentsToOneAndKeepsTheOrigin)
{
    EXPECT_EQ((CaptureRegion{3, 4, 0, -7}).normalized(), (CaptureRegion{3, 4, 1, 1}));
}

TEST(CaptureRegion, NormalizingKeepsWhatHasAnExtent)
{
    EXPECT_EQ((CaptureRegion{-3, -4, 1, 2}).normalized(), (CaptureRegion{-3, -4, 1, 2}));
}

TEST(CaptureRegion, NormalizingNeverOverflows)
{
    constexpr auto lowest = std::numeric_limits<std::int64_t>::min();
    constexpr auto highest = std::numeric_limits<std::int64_t>::max();
    EXPECT_EQ(
        (CaptureRegion{lowest, highest, lowest, highest}).normalized(), (CaptureRegion{lowest, highest, 1, highest}));
}

TEST(CaptureRegion, DiffersInAnyField)
{
    const CaptureRegion region{1, 2, 3, 4};
    EXPECT_EQ(region, (CaptureRegion{1, 2, 3, 4}));
    EXPECT_NE(region, (CaptureRegion{0, 2, 3, 4}));
    EXPECT_NE(region, (CaptureRegion{1, 0, 3, 4}));
    EXPECT_NE(region, (CaptureRegion{1, 2, 0, 4}));
    EXPECT_NE(region, (CaptureRegion{1, 2, 3, 0}));
}

} // namespace
} // namespace quillbox
