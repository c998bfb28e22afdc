#include "Capture/Wayland/CastOutput.h"

#include <gtest/gtest.h>

#include <vector>

namespace quillbox {
namespace {

using Outputs = std::vector<OutputFacts>;

OutputFacts output(QPoint position, PixelSize points, PixelSize mode)
{
    return {position, points, mode};
}

TEST(CastOutput, HasFewerPointsThanAreSaidWhereThoseArePixels)
{
    EXPECT_EQ(pointsOfOutput({2560, 1440}, {2560, 1440}, 2), (PixelSize{1280, 720}));
    EXPECT_EQ(pointsOfOutput({1440, 2560}, {2560, 1440}, 2), (PixelSize{720, 1280})) << "turned";
    EXPECT_EQ(pointsOfOutput({1280, 720}, {2560, 1440}, 2), (PixelSize{1280, 720}));
    EXPECT_EQ(pointsOfOutput({1707, 960}, {2560, 1440}, 2), (PixelSize{1707, 960})) << "three pixels for two points";
    EXPECT_EQ(pointsOfOutput({2560, 1440}, {2560, 1440}, 1), (PixelSize{2560, 1440}));
}

TEST(CastOutput, IsTheOneThatIsWhereThePortalSays)
{
    const Outputs outputs{output({0, 0}, {960, 540}, {1920, 1080}), output({960, 0}, {1280, 720}, {1280, 720})};
    EXPECT_EQ(pointsOfCast({QPoint(0, 0), PixelSize{960, 540}}, {1920, 1080}, outputs), (PixelSize{960, 540}));
    EXPECT_EQ(pointsOfCast({QPoint(960, 0), PixelSize{1280, 720}}, {1280, 720}, outputs), (PixelSize{1280, 720}));
    EXPECT_EQ(pointsOfCast({QPoint(960, 0), std::nullopt}, {1280, 720}, outputs), (PixelSize{1280, 720}));
}

TEST(CastOutput, IsKnownByItsPixelsWhereThePortalSaysThose)
{
    const Outputs outputs{output({0, 0}, {960, 540}, {1920, 1080}), output({960, 0}, {800, 600}, {1600, 1200})};
    EXPECT_EQ(pointsOfCast({QPoint(0, 0), PixelSize{1920, 1080}}, {1920, 1080}, outputs), (PixelSize{960, 540}));
    EXPECT_EQ(pointsOfCast({QPoint(0, 0), PixelSize{1600, 1200}}, {1600, 1200}, outputs), (PixelSize{800, 600}))
        << "the position is none";
}

TEST(CastOutput, IsKnownByItsPixelsWhenTurned)
{
    const Outputs outputs{output({0, 0}, {540, 960}, {1920, 1080}), output({540, 0}, {1280, 720}, {1280, 720})};
    EXPECT_EQ(pointsOfCast({std::nullopt, PixelSize{1920, 1080}}, {1080, 1920}, outputs), (PixelSize{540, 960}));
    EXPECT_EQ(pointsOfCast({std::nullopt, PixelSize{1080, 1920}}, {1080, 1920}, outputs), (PixelSize{540, 960}));
}

TEST(CastOutput, OfSeveralWithAsManyPixelsIsTheOneThatIsTurnedLikeThePicture)
{
    const Outputs outputs{output({0, 0}, {1920, 1080}, {1920, 1080}), output({1920, 0}, {1080, 1920}, {1920, 1080})};
    for (const CastFacts& cast : {CastFacts{std::nullopt, PixelSize{1920, 1080}}, CastFacts{std::nullopt, std::nullopt},
             CastFacts{QPoint(0, 0), PixelSize{1920, 1080}}}) {
        EXPECT_EQ(pointsOfCast(cast, {1080, 1920}, outputs), (PixelSize{1080, 1920}));
        EXPECT_EQ(pointsOfCast(cast, {1920, 1080}, outputs), (PixelSize{1920, 1080}));
    }
}

TEST(CastOutput, OfSeveralWithAsManyPixelsAtDifferentScalesIsUnknown)
{
    const Outputs outputs{output({0, 0}, {960, 540}, {1920, 1080}), output({960, 0}, {1920, 1080}, {1920, 1080})};
    EXPECT_EQ(pointsOfCast({std::nullopt, PixelSize{1920, 1080}}, {1920, 1080}, outputs), std::nullopt);
    EXPECT_EQ(pointsOfCast({std::nullopt, std::nullopt}, {1920, 1080}, outputs), std::nullopt);
    EXPECT_EQ(pointsOfCast({std::nullopt, PixelSize{960, 540}}, {1920, 1080}, outputs), (PixelSize{960, 540}))
        << "as many pixels it does not have";
}

TEST(CastOutput, OfSeveralThatDifferInTheirPlaceOnlyIsKnown)
{
    const Outputs outputs{output({0, 0}, {960, 540}, {1920, 1080}), output({960, 0}, {960, 540}, {1920, 1080})};
    EXPECT_EQ(pointsOfCast({std::nullopt, PixelSize{1920, 1080}}, {1920, 1080}, outputs), (PixelSize{960, 540}));
}

TEST(CastOutput, AnOutputOfAnotherShapeIsNotIt)
{
    const Outputs outputs{output({0, 0}, {1920, 1080}, {1920, 1080})};
    EXPECT_EQ(pointsOfCast({QPoint(0, 0), PixelSize{1920, 1080}}, {1080, 1920}, outputs), std::nullopt);
    EXPECT_EQ(pointsOfCast({QPoint(0, 0), PixelSize{1080, 1920}}, {1080, 1920}, outputs), (PixelSize{1080, 1920}));
}

TEST(CastOutput, PointsThatAreRoundedHaveTheShapeOfTheirPixels)
{
    EXPECT_TRUE(isOfOneShape({1093, 614}, {1366, 768}));  // 1092.8 × 614.4, at 1.25
    EXPECT_TRUE(isOfOneShape({1092, 615}, {1366, 768}));  // rounded in either direction
    EXPECT_TRUE(isOfOneShape({1463, 914}, {2560, 1600})); // 1462.9 × 914.3, at 1.75
    EXPECT_FALSE(isOfOneShape({1280, 800}, {1920, 1080}));
    EXPECT_FALSE(isOfOneShape({1200, 1920}, {1920, 1200}));
}

TEST(CastOutput, OfSeveralWithAsManyPixelsIsTheOneAtThePosition)
{
    const Outputs outputs{output({960, 0}, {1920, 1080}, {1920, 1080}), output({0, 0}, {960, 540}, {1920, 1080})};
    EXPECT_EQ(pointsOfCast({QPoint(0, 0), PixelSize{1920, 1080}}, {1920, 1080}, outputs), (PixelSize{960, 540}));
}

TEST(CastOutput, IsTheOnlyOneWhateverThePortalSays)
{
    const Outputs outputs{output({0, 0}, {960, 540}, {})};
    EXPECT_EQ(pointsOfCast({std::nullopt, std::nullopt}, {1920, 1080}, outputs), (PixelSize{960, 540}));
    EXPECT_EQ(pointsOfCast({QPoint(3, 4), PixelSize{1920, 1080}}, {1920, 1080}, outputs), (PixelSize{960, 540}));
}

TEST(CastOutput, IsWhatThePortalSaysWhereTheCompositorSaysNothing)
{
    EXPECT_EQ(pointsOfCast({QPoint(0, 0), PixelSize{1920, 1080}}, {1920, 1080}, {}), (PixelSize{1920, 1080}));
    EXPECT_EQ(pointsOfCast({QPoint(0, 0), PixelSize{960, 540}}, {1920, 1080}, {}), (PixelSize{960, 540}));
    EXPECT_EQ(pointsOfCast({std::nullopt, std::nullopt}, {1920, 1080}, {}), std::nullopt);
    const Outputs untold{OutputFacts()};
    EXPECT_EQ(pointsOfCast({QPoint(0, 0), PixelSize{1920, 1080}}, {1920, 1080}, untold), (PixelSize{1920, 1080}));
}

TEST(CastOutput, IsFoundAmongTheOutputsAsFarAsTheyDiffer)
{
    using Indices = std::vector<std::size_t>;
    const Outputs equal{output({0, 0}, {1280, 720}, {1280, 720}), output({1280, 0}, {1280, 720}, {1280, 720})};
    EXPECT_EQ(outputsOfCast({QPoint(1280, 0), PixelSize{1280, 720}}, {1280, 720}, equal), (Indices{1}));
    EXPECT_EQ(outputsOfCast({std::nullopt, PixelSize{1280, 720}}, {1280, 720}, equal), (Indices{0, 1}));
    const Outputs unequal{output({0, 0}, {960, 540}, {1920, 1080}), output({960, 0}, {800, 600}, {1600, 1200})};
    EXPECT_EQ(outputsOfCast({std::nullopt, std::nullopt}, {1600, 1200}, unequal), (Indices{1}));
    EXPECT_EQ(outputsOfCast({std::nullopt, std::nullopt}, {1000, 1000}, unequal), Indices{}) << "none has the shape";
    EXPECT_EQ(outputsOfCast({std::nullopt, std::nullopt}, {1920, 1080}, Outputs{OutputFacts()}), (Indices{0}));
    EXPECT_EQ(outputsOfCast({std::nullopt, std::nullopt}, {1920, 1080}, {}), Indices{});
}

} // namespace
} // namespace quillbox
