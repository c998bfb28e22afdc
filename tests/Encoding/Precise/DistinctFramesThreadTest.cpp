#include "Encoding/Precise/DistinctFramesThread.h"

#include "support/Pictures.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace quillbox {
namespace {

TEST(DistinctFramesThread, GivesWhatAppendingAllFramesGives)
{
    DistinctFrames plain({.sourceFPS = 30});
    DistinctFramesThread thread(DistinctFrames({.sourceFPS = 30}), 1);
    for (int i = 0; i < 20; ++i) {
        plain.append(support::textLike(40, 30, i / 2));
        thread.take(support::textLike(40, 30, i / 2));
    }
    const auto& frames = thread.finished();
    EXPECT_EQ(frames.frameCount(), 20);
    EXPECT_EQ(frames.recording().pictures.size(), plain.recording().pictures.size());
    EXPECT_EQ(frames.recording().colors, plain.recording().colors);
}

TEST(DistinctFramesThread, PassesOnWhyAPictureCannotBeKept)
{
    DistinctFramesThread thread(DistinctFrames({.onKept =
                                                    [](const RGBAFrame&) {
                                                        throw std::runtime_error("full");
                                                    }}),
        1);
    for (int i = 0; i < 5; ++i) // more than may wait: none of them blocks
        thread.take(support::solid(2, 2, support::gray(i)));
    EXPECT_THROW((void)thread.finished(), std::runtime_error);
}

TEST(DistinctFramesThread, CanBeDroppedWithFramesUnderWay)
{
    DistinctFramesThread thread(DistinctFrames({.sourceFPS = 30}), 8);
    for (int i = 0; i < 8; ++i)
        thread.take(support::solid(20, 20, support::gray(i)));
}

} // namespace
} // namespace quillbox
