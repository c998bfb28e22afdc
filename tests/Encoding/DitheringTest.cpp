#include "Encoding/Dithering.h"

#include "reference/PaletteMapper.h"
#include "support/Iterations.h"
#include "support/Pictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillbox {
namespace {

using support::gray;
using support::Random;

/// Dithers the frames one after another with one ditherer; each must come out as if it were alone.
void expectEachAsIfAlone(const std::vector<RGBAFrame>& frames, const std::vector<RGBColor>& palette)
{
    const NearestColorLUT lut(palette);
    Ditherer ditherer;
    ditherer.use(lut);
    Bytes indices;
    for (std::size_t i = 0; i < frames.size(); ++i) {
        ditherer.dither(frames[i], indices);
        ASSERT_EQ(indices, reference::mapDithered(frames[i], palette, 1).indices)
            << "frame " << i << " of " << frames[i].width() << " × " << frames[i].height();
    }
}

TEST(Ditherer, GivesARepeatedFrameTheSameIndices)
{
    Random random(41);
    const RGBAFrame frame = support::noise(50, 60, random);
    expectEachAsIfAlone({frame, frame, support::deepCopy(frame)}, support::randomPalette(8, random));
}

TEST(Ditherer, SeesAChangeOfOneRowWhereverItIs)
{
    Random random(42);
    const std::vector<RGBColor> palette = support::randomPalette(8, random);
    const RGBAFrame first = support::gradient(40, 70, 5);
    for (std::int64_t row = 0; row < first.height(); ++row) {
        const RGBAFrame changed = support::picture(40, 70, [&](std::int64_t x, std::int64_t y) {
            const auto offset = static_cast<std::size_t>((y * 40 + x) * 4);
            const PixelView pixels = first.pixels();
            return y == row ? gray(200) : RGBColor(pixels[offset], pixels[offset + 1], pixels[offset + 2]);
        });
        expectEachAsIfAlone({first, changed, first}, palette);
    }
}

TEST(Ditherer, SeesThatOnlyTheErrorsFromAboveChanged)
{
    // The lower half is the same in both frames, but the rows above it hand down other errors.
    const auto frameWith = [](int upperLevel) {
        return support::picture(30, 96, [=](std::int64_t, std::int64_t y) { return gray(y < 48 ? upperLevel : 100); });
    };
    expectEachAsIfAlone({frameWith(10), frameWith(120), frameWith(10)}, {gray(0), gray(255)});
}

TEST(Ditherer, StartsAnewWhenTheSizeChanges)
{
    Random random(43);
    const RGBAFrame frame = support::noise(24, 32, random);
    // The same bytes in another shape.
    const RGBAFrame reshaped(32, 24, Bytes(frame.pixels()));
    expectEachAsIfAlone({frame, reshaped, frame, support::noise(24, 8, random), RGBAFrame(0, 0, Bytes()), frame},
        support::randomPalette(6, random));
}

TEST(Ditherer, ReturnsToAnEarlierPicture)
{
    Random random(44);
    const RGBAFrame a = support::textLike(64, 64, 0);
    const RGBAFrame b = support::textLike(64, 64, 9);
    expectEachAsIfAlone({a, b, a, a, b, b, a}, support::randomPalette(4, random));
}

TEST(Ditherer, ForgetsTheFramesOfAnEarlierTable)
{
    Random random(46);
    const RGBAFrame frame = support::noise(40, 50, random);
    Ditherer ditherer;
    Bytes indices;
    for (int i = 0; i < 4; ++i) {
        const std::vector<RGBColor> palette = support::randomPalette(6, random);
        ditherer.use(NearestColorLUT(palette));
        ditherer.dither(frame, indices);
        EXPECT_EQ(indices, reference::mapDithered(frame, palette, 1).indices);
    }
}

TEST(DithererDeathTest, NeedsAPalette)
{
    Ditherer ditherer;
    ditherer.use(NearestColorLUT({}));
    Bytes indices;
    EXPECT_DEATH(ditherer.dither(support::solid(1, 1, gray(1)), indices), "at least one colour");
}

TEST(Ditherer, TreatsRandomRecordingsFrameByFrameAsTheReference)
{
    Random random(45);
    for (std::int64_t i = support::iterations(500); i > 0; --i) {
        std::vector<RGBAFrame> frames{support::randomPicture(random.between(1, 110), random.between(1, 110), random)};
        while (frames.size() < 6)
            frames.push_back(support::randomSuccessor(frames.back(), random));
        expectEachAsIfAlone(frames, support::randomPalette(random.pick<std::int64_t>({1, 2, 5, 40}), random));
    }
}

} // namespace
} // namespace quillbox
