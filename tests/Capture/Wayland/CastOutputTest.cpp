#include "Capture/Wayland/CastOutput.h"

#include <gtest/gtest.h>

#include <vector>

namespace quillbox {
namespace {

using Size = FrameResampler::Size;
using Outputs = std::vector<OutputFacts>;

OutputFacts output(QPoint position, Size points, Size mode)
{
    return {position, points, mode};
}

TEST(CastOutput, IsTheOneThatIsWhereThePortalSays)
{
    const Outputs outputs{output({0, 0}, {960, 540}, {1920, 1080}), output({960, 0}, {1280, 720}, {1280, 720})};
    EXPECT_EQ(pointsOfCast({QPoint(0, 0), Size{960, 540}}, outputs), (Size{960, 540}));
    EXPECT_EQ(pointsOfCast({QPoint(960, 0), Size{1280, 720}}, outputs), (Size{1280, 720}));
    EXPECT_EQ(pointsOfCast({QPoint(960, 0), std::nullopt}, outputs), (Size{1280, 720}));
}

TEST(CastOutput, IsKnownByItsPixelsWhereThePortalSaysThose)
{
    const Outputs outputs{output({0, 0}, {960, 540}, {1920, 1080}), output({960, 0}, {800, 600}, {1600, 1200})};
    EXPECT_EQ(pointsOfCast({QPoint(0, 0), Size{1920, 1080}}, outputs), (Size{960, 540}));
    EXPECT_EQ(pointsOfCast({QPoint(0, 0), Size{1600, 1200}}, outputs), (Size{800, 600})) << "the position is none";
}

TEST(CastOutput, IsKnownByItsPixelsWhenTurned)
{
    const Outputs outputs{output({0, 0}, {540, 960}, {1920, 1080}), output({540, 0}, {1280, 720}, {1280, 720})};
    EXPECT_EQ(pointsOfCast({std::nullopt, Size{1920, 1080}}, outputs), (Size{540, 960}));
    EXPECT_EQ(pointsOfCast({std::nullopt, Size{1080, 1920}}, outputs), (Size{540, 960}));
}

TEST(CastOutput, OfSeveralWithAsManyPixelsIsTheOneAtThePosition)
{
    const Outputs outputs{output({960, 0}, {1920, 1080}, {1920, 1080}), output({0, 0}, {960, 540}, {1920, 1080})};
    EXPECT_EQ(pointsOfCast({QPoint(0, 0), Size{1920, 1080}}, outputs), (Size{960, 540}));
}

TEST(CastOutput, IsTheOnlyOneWhateverThePortalSays)
{
    const Outputs outputs{output({0, 0}, {960, 540}, {})};
    EXPECT_EQ(pointsOfCast({std::nullopt, std::nullopt}, outputs), (Size{960, 540}));
    EXPECT_EQ(pointsOfCast({QPoint(3, 4), Size{1920, 1080}}, outputs), (Size{960, 540}));
}

TEST(CastOutput, IsWhatThePortalSaysWhereTheCompositorSaysNothing)
{
    EXPECT_EQ(pointsOfCast({QPoint(0, 0), Size{1920, 1080}}, {}), (Size{1920, 1080}));
    EXPECT_EQ(pointsOfCast({std::nullopt, std::nullopt}, {}), std::nullopt);
    const Outputs untold{OutputFacts()};
    EXPECT_EQ(pointsOfCast({QPoint(0, 0), Size{1920, 1080}}, untold), (Size{1920, 1080}));
}

} // namespace
} // namespace quillbox
