#include "Encoding/FrameComparisons.h"

#include "reference/FrameDeduplicator.h"
#include "support/Iterations.h"
#include "support/Pictures.h"

#include <gtest/gtest.h>

#include <vector>

namespace quillbox {
namespace {

using support::gray;
using support::Random;

TEST(FrameComparisons, ComparesWithTheFrameAtHand)
{
    const RGBAFrame dark = support::solid(4, 4, gray(0));
    const RGBAFrame bright = support::solid(4, 4, gray(200));
    FrameComparisons comparisons;
    comparisons.turnTo(bright);
    EXPECT_EQ(comparisons.fractionChangedSince(dark), 1.0);
    EXPECT_EQ(comparisons.fractionChangedSince(bright), 0.0);
    comparisons.turnTo(dark);
    EXPECT_EQ(comparisons.fractionChangedSince(dark), 0.0);
    EXPECT_EQ(comparisons.fractionChangedSince(bright), 1.0);
}

TEST(FrameComparisons, FramesWithoutPixelsAreDifferentFromThemselves)
{
    const RGBAFrame empty(0, 3, Bytes());
    FrameComparisons comparisons;
    comparisons.turnTo(empty);
    EXPECT_EQ(comparisons.fractionChangedSince(empty), 1.0);
    EXPECT_EQ(comparisons.fractionChangedSince(empty), 1.0) << "asked a second time";
}

TEST(FrameComparisonsDeathTest, NeedsAFrameAtHand)
{
    FrameComparisons comparisons;
    EXPECT_DEATH((void)comparisons.fractionChangedSince(support::solid(1, 1, gray(0))), "a frame at hand");
}

TEST(FrameComparisons, AnswersAsTheReferenceInAnyOrder)
{
    Random random(121);
    for (std::int64_t i = support::iterations(400); i > 0; --i) {
        std::vector<RGBAFrame> frames{support::randomPicture(random.below(12), random.below(12), random)};
        while (frames.size() < 8)
            frames.push_back(support::randomSuccessor(frames.back(), random));
        FrameComparisons comparisons;
        for (int turn = 0; turn < 20; ++turn) {
            const RGBAFrame& frame = frames[static_cast<std::size_t>(random.below(8))];
            comparisons.turnTo(frame);
            for (int question = 0; question < 4; ++question) {
                const RGBAFrame& earlier = frames[static_cast<std::size_t>(random.below(8))];
                const double fraction = reference::fractionChanged(earlier, frame, 12);
                const double threshold = random.pick({0.01, 0.1, fraction});
                if (random.oneIn(2))
                    ASSERT_EQ(comparisons.changesMoreThan(earlier, threshold), fraction > threshold);
                else
                    ASSERT_EQ(comparisons.fractionChangedSince(earlier), fraction);
            }
        }
    }
}

} // namespace
} // namespace quillbox
