#include "Encoding/Precise/Thinning.h"

#include "support/Pictures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace quillbox {
namespace {

/// What is recorded of grey pictures, each shown for so many frames.
DistinctFrames::Recording recorded(const std::vector<std::pair<int, int>>& levelsAndFrames)
{
    DistinctFrames frames({.sourceFPS = 30});
    for (const auto& [level, count] : levelsAndFrames) {
        for (int i = 0; i < count; ++i)
            frames.append(support::solid(2, 2, support::gray(level)));
    }
    return frames.recording();
}

using Order = std::vector<std::size_t>;

TEST(Thinning, BeginsWithThePictureWhoseAbsenceShowsLeast)
{
    EXPECT_EQ(Thinning::order(recorded({{0, 5}, {50, 1}, {60, 1}, {90, 1}, {200, 5}}), 100), (Order{2, 3, 1}));
}

TEST(Thinning, CountsHowLongAPictureIsShown)
{
    EXPECT_EQ(Thinning::order(recorded({{0, 5}, {10, 9}, {25, 1}, {0, 1}}), 100).front(), 2U);
}

TEST(Thinning, AddsUpWhatWasLeftOutBefore)
{
    // Without 1, picture 2 changes 0 to 20, not 10 to 20, and so 4 goes first.
    EXPECT_EQ(
        Thinning::order(recorded({{0, 5}, {10, 1}, {20, 1}, {60, 1}, {75, 1}, {0, 1}}), 100), (Order{1, 2, 4, 3}));
}

TEST(Thinning, LeavesNoLongerGapThanAllowed)
{
    const auto recording = recorded({{0, 1}, {1, 1}, {2, 1}, {3, 1}, {4, 1}, {5, 1}, {6, 1}});
    std::vector<bool> isLeftOut(7, false);
    for (const std::size_t picture : Thinning::order(recording, 3))
        isLeftOut.at(picture) = true;
    for (std::size_t i = 0; i + 3 <= isLeftOut.size(); ++i)
        EXPECT_FALSE(isLeftOut[i] && isLeftOut[i + 1] && isLeftOut[i + 2]) << "from " << i;
    EXPECT_EQ(std::ranges::count(isLeftOut, true), 3);
    EXPECT_EQ(Thinning::order(recording, 1), Order{});
}

TEST(Thinning, KeepsTheFirstAndTheLast)
{
    EXPECT_EQ(Thinning::order(recorded({{0, 1}, {1, 1}}), 100), Order{});
    EXPECT_EQ(Thinning::order(recorded({{0, 1}}), 100), Order{});
}

} // namespace
} // namespace quillbox
