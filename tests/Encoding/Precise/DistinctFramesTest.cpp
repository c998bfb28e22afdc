#include "Encoding/Precise/DistinctFrames.h"

#include "support/Pictures.h"

#include <gtest/gtest.h>

#include <map>
#include <vector>

namespace quillbox {
namespace {

using support::gray;
using support::Random;
using support::solid;

DistinctFrames::Recording recorded(const std::vector<RGBAFrame>& frames, DistinctFrames::Options options = {})
{
    DistinctFrames distinct(std::move(options));
    for (const RGBAFrame& frame : frames)
        distinct.append(frame);
    return distinct.recording();
}

/// `frame` with pixels in another colour.
RGBAFrame with(const RGBAFrame& frame, const std::vector<std::pair<std::int64_t, std::int64_t>>& places, RGBColor color)
{
    Bytes pixels(frame.pixels());
    for (const auto& [x, y] : places) {
        const auto offset = static_cast<std::size_t>((y * frame.width() + x) * 4);
        pixels[offset] = color.r;
        pixels[offset + 1] = color.g;
        pixels[offset + 2] = color.b;
    }
    return {frame.width(), frame.height(), std::move(pixels)};
}

/// What the screen shows after each of the recording's pictures.
std::vector<std::vector<RGBColor>> composed(const DistinctFrames::Recording& recording)
{
    std::vector<RGBColor> screen(static_cast<std::size_t>(recording.size.width * recording.size.height));
    std::vector<std::vector<RGBColor>> shown;
    for (const auto& picture : recording.pictures) {
        std::vector<RGBColor> pixels;
        picture.pixels.forEachColor([&](RGBColor color) { pixels.push_back(color); });
        const PictureArea& area = picture.area;
        for (std::int64_t i = 0; i < area.pixelCount(); ++i)
            screen.at(static_cast<std::size_t>(
                (area.top + i / area.width) * recording.size.width + area.left + i % area.width))
                = pixels.at(static_cast<std::size_t>(i));
        shown.push_back(screen);
    }
    return shown;
}

std::vector<RGBColor> colorsOf(const RGBAFrame& frame)
{
    std::vector<RGBColor> colors;
    frame.forEachColor([&](RGBColor color) { colors.push_back(color); });
    return colors;
}

TEST(DistinctFrames, KeepAFrameInWhichOnePixelDiffersByOneLevel)
{
    const RGBAFrame plain = solid(40, 70, gray(9));
    const auto recording = recorded({plain, support::deepCopy(plain), with(plain, {{31, 65}}, RGBColor(9, 9, 10))});
    ASSERT_EQ(recording.pictures.size(), 2U);
    EXPECT_EQ(recording.pictures[1].area, (PictureArea{31, 65, 1, 1}));
    EXPECT_EQ(recording.pictures[1].tick, 2);
    EXPECT_EQ(recording.pictures[1].changedPixels, 1);
    EXPECT_EQ(recording.pictures[1].squaredChange, 1);
    EXPECT_EQ(recording.frameCount, 3);
}

TEST(DistinctFrames, HoldTheSmallestAreaOfAllChangesAndMarkThem)
{
    const RGBAFrame plain = solid(10, 100, gray(0));
    const auto recording = recorded({plain, with(plain, {{2, 3}, {5, 97}}, gray(1))});
    const auto& picture = recording.pictures.at(1);
    EXPECT_EQ(picture.area, (PictureArea{2, 3, 4, 95}));
    const PixelView pixels = picture.pixels.pixels();
    EXPECT_EQ(pixels[3], 255);   // the alpha of (2, 3)
    EXPECT_EQ(pixels[4 + 3], 0); // of (3, 3)
    EXPECT_EQ(pixels[pixels.size() - 1], 255);
    EXPECT_EQ(picture.changedPixels, 2);
}

TEST(DistinctFrames, IgnoreAlpha)
{
    EXPECT_EQ(recorded({RGBAFrame(1, 1, {1, 2, 3, 4}), RGBAFrame(1, 1, {1, 2, 3, 5})}).pictures.size(), 1U);
}

TEST(DistinctFrames, CountHowLongEachColourIsShown)
{
    const RGBAFrame plain = solid(2, 1, gray(7));
    const auto recording = recorded({plain, plain, with(plain, {{1, 0}}, gray(200)), plain, plain, plain});
    EXPECT_EQ(recording.colors, (std::vector<WeightedColor>{{gray(7), 6 + 5}, {gray(200), 1}}));
    EXPECT_EQ(recording.pictures[0].pixelTicks, 6 + 2);
    EXPECT_EQ(recording.pictures[1].pixelTicks, 1);
    EXPECT_EQ(recording.pictures[2].pixelTicks, 3);
}

TEST(DistinctFrames, AreCompleteAtAnyMoment)
{
    DistinctFrames distinct({.sourceFPS = 30});
    distinct.append(solid(3, 3, gray(1)));
    EXPECT_EQ(distinct.recording().colors, (std::vector<WeightedColor>{{gray(1), 9}}));
    distinct.append(solid(3, 3, gray(1)));
    EXPECT_EQ(distinct.recording().colors, (std::vector<WeightedColor>{{gray(1), 18}}));
}

TEST(DistinctFrames, ShrunkAreThoseOfFramesShrunkBefore)
{
    Random random(3);
    std::vector<RGBAFrame> frames{support::textLike(120, 90, 0)};
    for (int i = 0; i < 30; ++i)
        frames.push_back(support::randomSuccessor(frames.back(), random));
    for (const auto& input : {frames, support::inBands(frames)}) {
        const auto direct = recorded(input, {.maxWidth = 50});
        const auto shrunk = recorded(FrameResampler::cappedToWidth(frames, 50));
        EXPECT_EQ(direct.size, (PixelSize{50, 38}));
        EXPECT_EQ(direct.recordedSize, (PixelSize{120, 90}));
        EXPECT_EQ(composed(direct), composed(shrunk));
        EXPECT_EQ(direct.colors, shrunk.colors);
    }
}

TEST(DistinctFrames, ThatDifferOnlyBeforeTheyAreShrunkAreTheSame)
{
    const RGBAFrame plain = solid(100, 100, gray(100));
    EXPECT_EQ(recorded({plain, with(plain, {{50, 50}}, gray(101))}, {.maxWidth = 10}).pictures.size(), 1U);
}

TEST(DistinctFrames, ShowWhatWasRecordedPictureByPicture)
{
    Random random(5);
    std::vector<RGBAFrame> frames{support::gradient(33, 70, 0)};
    for (int i = 0; i < 40; ++i)
        frames.push_back(support::randomSuccessor(frames.back(), random));
    const auto recording = recorded(frames);
    const auto shown = composed(recording);
    for (std::size_t i = 0; i < shown.size(); ++i)
        EXPECT_EQ(shown[i], colorsOf(frames.at(static_cast<std::size_t>(recording.pictures[i].tick)))) << i;
    std::map<std::int64_t, std::int64_t> weightOfAll;
    std::int64_t weight = 0;
    for (const auto& [color, count] : recording.colors)
        weight += count;
    EXPECT_EQ(weight, 33 * 70 * 41);
}

TEST(DistinctFrames, OfAnotherSizeCoverTheUpperLeftPart)
{
    const auto recording = recorded({solid(4, 3, gray(0)), solid(2, 2, gray(9)), solid(8, 6, gray(5))});
    EXPECT_EQ(recording.pictures[1].area, (PictureArea{0, 0, 2, 2}));
    EXPECT_EQ(composed(recording)[2], std::vector<RGBColor>(12, gray(5)));
}

TEST(DistinctFrames, AreLookedAtNoMoreOftenThanAsked)
{
    std::vector<RGBAFrame> frames;
    for (int i = 0; i < 12; ++i)
        frames.push_back(solid(1, 1, gray(i)));
    std::vector<std::int64_t> ticks;
    for (const auto& picture : recorded(frames, {.sourceFPS = 60, .maxFPS = 24}).pictures)
        ticks.push_back(picture.tick);
    EXPECT_EQ(ticks, (std::vector<std::int64_t>{0, 2, 5, 7, 10}));
}

TEST(DistinctFrames, AreToldOfWhenTheyAreKept)
{
    std::vector<std::int64_t> kept;
    const RGBAFrame plain = solid(6, 6, gray(0));
    DistinctFrames::Options options;
    options.onKept = [&](const RGBAFrame& picture) {
        kept.push_back(picture.pixelCount());
        EXPECT_NE(picture.ownBand(0), nullptr) << "it can be evicted";
    };
    (void)recorded({plain, with(plain, {{1, 1}, {2, 2}}, gray(3)), plain}, std::move(options));
    EXPECT_EQ(kept, (std::vector<std::int64_t>{36, 4, 4}));
}

TEST(DistinctFrames, SayWhichFrameIsTooLarge)
{
    DistinctFrames distinct({.sourceFPS = 30});
    distinct.append(solid(1, 1, gray(0)));
    distinct.append(solid(65536, 1, gray(0)));
    try {
        (void)distinct.recording();
        FAIL() << "nothing was thrown";
    } catch (const GIFEncodingError& error) {
        EXPECT_EQ(error.dimensionTooLarge(), (GIFEncodingError::DimensionTooLarge{65536, 1}));
    }
}

} // namespace
} // namespace quillbox
