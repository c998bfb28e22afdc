#include "Capture/FrameTimeline.h"

#include <gtest/gtest.h>

namespace quillbox {
namespace {

using std::chrono::microseconds;
using std::chrono::milliseconds;
using std::chrono::nanoseconds;
using std::chrono::seconds;

constexpr FrameTimeline::TimePoint zero{seconds(1000)};

/// A frame that can be told from others.
RGBAFrame frame(std::uint8_t number)
{
    return RGBAFrame(1, 1, Bytes{number, number, number, 255});
}

/// The numbers of a finished list's frames.
std::vector<int> numbers(const FrameTimeline& timeline)
{
    std::vector<int> result;
    for (const RGBAFrame& each : timeline.frames())
        result.push_back(each.pixels()[0]);
    return result;
}

/// The moment of a tick's beginning, rounded down to a nanosecond as a back end's clock would.
FrameTimeline::TimePoint tick(std::int64_t number)
{
    return zero + nanoseconds(number * 1'000'000'000 / 30);
}

TEST(FrameTimeline, WithoutAPictureItStaysEmpty)
{
    FrameTimeline timeline;
    EXPECT_EQ(timeline.frameCount(zero + seconds(5)), 0);
    timeline.finish(zero + seconds(5));
    EXPECT_TRUE(timeline.frames().empty());
}

TEST(FrameTimeline, OnePictureGivesAtLeastOneFrame)
{
    FrameTimeline timeline;
    timeline.deliver(frame(7), zero);
    timeline.finish(zero);
    EXPECT_EQ(numbers(timeline), (std::vector{7}));
}

TEST(FrameTimeline, TheLengthIsTheDurationTimesThirtyRounded)
{
    const auto lengthAfter = [](FrameTimeline::TimePoint end) {
        FrameTimeline timeline;
        timeline.deliver(frame(1), zero);
        timeline.finish(end);
        return std::ssize(timeline.frames());
    };
    EXPECT_EQ(lengthAfter(zero + seconds(10)), 300);
    EXPECT_EQ(lengthAfter(zero + milliseconds(49)), 1); // 1.47
    EXPECT_EQ(lengthAfter(zero + milliseconds(50)), 2); // 1.5: away from zero
    EXPECT_EQ(lengthAfter(zero + milliseconds(83)), 2); // 2.49
    EXPECT_EQ(lengthAfter(zero + milliseconds(84)), 3); // 2.52
    EXPECT_EQ(lengthAfter(zero + std::chrono::hours(1)), 108'000);
}

TEST(FrameTimeline, RepeatedFramesShareTheirPixels)
{
    FrameTimeline timeline;
    timeline.deliver(frame(1), zero);
    timeline.deliver(frame(1), tick(3));
    timeline.finish(tick(5));
    ASSERT_EQ(std::ssize(timeline.frames()), 5);
    EXPECT_TRUE(timeline.frames()[0].sharesPixels(timeline.frames()[2]));
    EXPECT_FALSE(timeline.frames()[2].sharesPixels(timeline.frames()[3]));
    EXPECT_TRUE(timeline.frames()[3].sharesPixels(timeline.frames()[4]));
}

TEST(FrameTimeline, EveryTickShowsTheLatestPictureBeforeItsEnd)
{
    FrameTimeline timeline;
    timeline.deliver(frame(1), zero);
    timeline.deliver(frame(2), zero + milliseconds(20)); // the first tick again
    timeline.deliver(frame(3), zero + milliseconds(70)); // the third
    timeline.finish(zero + milliseconds(134));           // 4.02 ticks
    EXPECT_EQ(numbers(timeline), (std::vector{2, 2, 3, 3}));
}

TEST(FrameTimeline, APictureAtATicksEndBelongsToTheNextTick)
{
    FrameTimeline timeline;
    timeline.deliver(frame(1), zero);
    timeline.deliver(frame(2), zero + milliseconds(100)); // exactly the beginning of the fourth
    timeline.finish(zero + milliseconds(134));
    EXPECT_EQ(numbers(timeline), (std::vector{1, 1, 1, 2}));
}

TEST(FrameTimeline, PicturesOnTheTicksAreNeitherLostNorRepeated)
{
    // Thirtieths of a second, rounded down to nanoseconds, from every phase of the rounding.
    for (std::int64_t first = 0; first < 3; ++first) {
        FrameTimeline timeline;
        std::vector<int> expected;
        for (std::int64_t k = 0; k < 90; ++k) {
            timeline.deliver(frame(static_cast<std::uint8_t>(k)), tick(first + k));
            expected.push_back(static_cast<int>(k));
        }
        timeline.finish(tick(first + 90));
        EXPECT_EQ(numbers(timeline), expected) << "from tick " << first;
    }
}

TEST(FrameTimeline, APictureInTheLastHalfTickThatIsRoundedAwayIsNotShown)
{
    FrameTimeline timeline;
    timeline.deliver(frame(1), zero);
    timeline.deliver(frame(2), zero + milliseconds(34)); // tick 1
    timeline.finish(zero + milliseconds(40));            // 1.2 ticks: one frame
    EXPECT_EQ(numbers(timeline), (std::vector{1}));
}

TEST(FrameTimeline, ALateEndIsFilledWithTheLatestPicture)
{
    FrameTimeline timeline;
    timeline.deliver(frame(1), zero);
    timeline.deliver(frame(2), tick(1));
    timeline.finish(tick(4));
    EXPECT_EQ(numbers(timeline), (std::vector{1, 2, 2, 2}));
}

TEST(FrameTimeline, AnEndBeforeTheLastPictureCountsAsThatPicturesMoment)
{
    FrameTimeline timeline;
    timeline.deliver(frame(1), zero);
    timeline.deliver(frame(2), tick(6));
    timeline.finish(tick(2));
    EXPECT_EQ(std::ssize(timeline.frames()), 6);
}

TEST(FrameTimeline, ATimeThatGoesBackCountsAsTheLatestOne)
{
    FrameTimeline timeline;
    timeline.deliver(frame(1), zero);
    timeline.deliver(frame(2), tick(3));
    timeline.deliver(frame(3), tick(1));
    timeline.finish(tick(4));
    EXPECT_EQ(numbers(timeline), (std::vector{1, 1, 1, 3}));
}

TEST(FrameTimeline, CountsTheFramesThatAnEndNowWouldLeave)
{
    FrameTimeline timeline;
    timeline.deliver(frame(1), zero);
    EXPECT_EQ(timeline.frameCount(zero), 1);
    EXPECT_EQ(timeline.frameCount(zero + seconds(2)), 60);
    EXPECT_EQ(timeline.frameCount(zero - seconds(2)), 1);
    EXPECT_TRUE(timeline.frames().empty()) << "asking must not fill the list";
    timeline.finish(zero + seconds(1));
    EXPECT_EQ(timeline.frameCount(zero + seconds(2)), 30);
}

TEST(FrameTimeline, ASecondEndChangesNothing)
{
    FrameTimeline timeline;
    timeline.deliver(frame(1), zero);
    timeline.finish(tick(2));
    timeline.finish(tick(9));
    EXPECT_EQ(std::ssize(timeline.frames()), 2);
    EXPECT_TRUE(timeline.isFinished());
}

TEST(FrameTimeline, APictureAfterTheEndIsOneFrameMore)
{
    FrameTimeline timeline;
    timeline.deliver(frame(1), zero);
    timeline.finish(tick(2));
    timeline.deliver(frame(2), tick(8));
    EXPECT_EQ(numbers(timeline), (std::vector{1, 1, 2}));
}

TEST(FrameTimeline, APictureAfterAnEmptyEndIsTheOnlyFrame)
{
    FrameTimeline timeline;
    timeline.finish(zero);
    timeline.deliver(frame(2), tick(8));
    EXPECT_EQ(numbers(timeline), (std::vector{2}));
}

TEST(FrameTimeline, NeverGetsLongerThanItsLimit)
{
    FrameTimeline timeline(3);
    timeline.deliver(frame(1), zero);
    timeline.deliver(frame(2), tick(2));
    EXPECT_EQ(timeline.frameCount(tick(2)), 2);
    EXPECT_EQ(timeline.frameCount(tick(3)), 3);
    EXPECT_EQ(timeline.frameCount(tick(9)), 3);
    timeline.deliver(frame(3), tick(8));
    timeline.finish(tick(9));
    EXPECT_EQ(timeline.frameCount(tick(9)), 3);
    timeline.deliver(frame(4), tick(10));
    EXPECT_EQ(numbers(timeline), (std::vector{1, 1, 2}));
}

TEST(FrameTimeline, PicturesFasterThanTheTicksReplaceEachOther)
{
    FrameTimeline timeline;
    for (int i = 0; i < 120; ++i) // 120 a second, for a second
        timeline.deliver(frame(static_cast<std::uint8_t>(i)), zero + microseconds(8'333 * i));
    timeline.finish(zero + seconds(1));
    ASSERT_EQ(std::ssize(timeline.frames()), 30);
    EXPECT_EQ(timeline.frames().front().pixels()[0], 4); // the fifth comes at 33.332 ms
    EXPECT_EQ(timeline.frames().back().pixels()[0], 119);
}

TEST(FrameTimeline, TellsWhichFramesAreHeld)
{
    using Held = std::vector<FrameRange>;
    FrameTimeline timeline;
    timeline.deliver(frame(1), tick(0));
    timeline.hold(tick(2)); // the frame of this tick shows the screen
    EXPECT_EQ(timeline.held(), Held{}) << "it goes on";
    timeline.resume(tick(5));
    EXPECT_EQ(timeline.held(), (Held{{3, 5}}));
    timeline.deliver(frame(2), tick(5));
    timeline.hold(tick(6));
    timeline.resume(tick(7));
    EXPECT_EQ(timeline.held(), (Held{{3, 5}})) << "no frame but those two that show the screen";
    timeline.hold(tick(8));
    timeline.hold(tick(9)); // it does already
    timeline.finish(tick(12));
    EXPECT_EQ(timeline.held(), (Held{{3, 5}, {9, 12}}));
    EXPECT_EQ(numbers(timeline), (std::vector{1, 1, 1, 1, 1, 2, 2, 2, 2, 2, 2, 2}));
}

TEST(FrameTimeline, AHoldBeforeTheFirstPictureBeginsWithIt)
{
    FrameTimeline timeline;
    timeline.hold(tick(-5));
    timeline.deliver(frame(1), tick(0));
    timeline.resume(tick(3));
    EXPECT_EQ(timeline.held(), (std::vector<FrameRange>{{1, 3}}));
    FrameTimeline empty;
    empty.hold(tick(0));
    empty.resume(tick(3));
    empty.hold(tick(4));
    empty.finish(tick(9));
    EXPECT_TRUE(empty.held().empty());
}

TEST(FrameTimeline, NoMoreFramesAreHeldThanThereAre)
{
    FrameTimeline timeline(4);
    timeline.deliver(frame(1), tick(0));
    timeline.hold(tick(1));
    timeline.finish(tick(9));
    EXPECT_EQ(timeline.held(), (std::vector<FrameRange>{{2, 4}}));
}

} // namespace
} // namespace quillbox
