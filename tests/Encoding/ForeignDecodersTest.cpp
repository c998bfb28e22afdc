#include "Encoding/GIFEncoder.h"
#include "Encoding/GIFOptimizer.h"

#include "reference/GIFOptimizer.h"
#include "support/ForeignDecoders.h"
#include "support/GifDecoding.h"
#include "support/Pictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <vector>

// Programs that we did not write decode a representative set of our files. All frames of a file have one size, since
// programs differ in what they show around a smaller one.

namespace quillbox {
namespace {

using support::gray;
using support::Random;
using support::ShownGif;

struct Clip {
    Bytes file;
    std::vector<IndexedFrame> frames;
};

Clip written(std::vector<IndexedFrame> frames)
{
    Clip clip;
    clip.file = GIFEncoder::encode(frames);
    clip.frames = std::move(frames);
    return clip;
}

Clip optimized(const std::vector<RGBAFrame>& frames, const GIFOptimizer::Config& config)
{
    return {GIFOptimizer::optimize(frames, config).data, reference::optimize(frames, config).frames};
}

IndexedFrame noisy(std::int64_t width, std::int64_t height, std::int64_t colors, std::int64_t delay, Random& random)
{
    // No colour twice, and the first frame fills the screen: nothing about the picture is left to the decoder.
    IndexedFrame frame{width, height, {}, {}, delay};
    for (std::int64_t i = 0; i < colors; ++i)
        frame.palette.emplace_back(static_cast<std::uint8_t>(i), random.byte(), random.byte());
    for (std::int64_t i = 0; i < width * height; ++i)
        frame.indices.push_back(static_cast<std::uint8_t>(random.below(colors)));
    return frame;
}

Clip onePixel()
{
    return written({IndexedFrame{1, 1, {RGBColor(1, 2, 3)}, Bytes{0}, 10}});
}

Clip everyTableSize()
{
    Random random(111);
    std::vector<IndexedFrame> frames;
    for (const std::int64_t colors : {1, 2, 3, 4, 5, 8, 9, 16, 17, 32, 33, 64, 65, 128, 129, 255, 256})
        frames.push_back(noisy(37, 29, colors, 3 + colors, random));
    return written(frames);
}

Clip severalFullTables()
{
    Random random(112);
    return written({noisy(300, 200, 256, 20, random), noisy(300, 200, 4, 20, random)});
}

/// Six zeros end where a decoder's code width has already grown; see the LZW tests.
Clip endCodeOneBitShort()
{
    return written({IndexedFrame{6, 1, {gray(9), gray(80), gray(200)}, Bytes(6, 0), 5}});
}

Clip longRun()
{
    return written({IndexedFrame{2000, 1000, {gray(9), gray(80)}, Bytes(2'000'000, 1), 5}});
}

Clip extremeDelays()
{
    std::vector<IndexedFrame> frames;
    for (const std::int64_t delay : {0, 1, 2, 3, 10, 65535, 70'000})
        frames.push_back({2, 2, {gray(static_cast<int>(delay % 251)), gray(255)}, Bytes{0, 1, 1, 0}, delay});
    return written(frames);
}

Clip textWithSlack()
{
    std::vector<RGBAFrame> frames;
    for (std::int64_t i = 0; i < 20; ++i)
        frames.push_back(support::textLike(240, 160, i / 4 * 5));
    return optimized(frames, {.preset = ExportPreset::slack});
}

Clip gradientWithDocs()
{
    std::vector<RGBAFrame> frames;
    for (std::int64_t i = 0; i < 10; ++i)
        frames.push_back(support::gradient(200, 120, i * 9));
    return optimized(frames, {.preset = ExportPreset::docs, .ditheringOverride = true});
}

Clip cappedScreenshot()
{
    return optimized(
        {support::textLike(1280, 300, 0), support::textLike(1280, 300, 40)}, {.preset = ExportPreset::slack});
}

struct ClipCase {
    const char* name;
    Clip (*make)();
};

void PrintTo(const ClipCase& clip, std::ostream* stream)
{
    *stream << clip.name;
}

class ForeignDecoders : public testing::TestWithParam<ClipCase> {
protected:
    using Decoder = ShownGif (*)(std::span<const std::uint8_t>, std::int64_t width, std::int64_t height);

    void expectShownAsMeant(Decoder decode) const
    {
        const IndexedFrame& first = m_clip.frames.at(0);
        const ShownGif shown = decode(m_clip.file, first.width, first.height);
        ASSERT_EQ(shown.pictures.size(), m_clip.frames.size());
        ASSERT_EQ(shown.delaysCentiseconds.size(), m_clip.frames.size());
        for (std::size_t i = 0; i < m_clip.frames.size(); ++i) {
            EXPECT_TRUE(shown.pictures[i] == support::colorsOf(m_clip.frames[i])) << "the pixels of frame " << i;
            EXPECT_EQ(
                shown.delaysCentiseconds[i], std::clamp<std::int64_t>(m_clip.frames[i].delayCentiseconds, 1, 65535))
                << "the delay of frame " << i;
        }
        EXPECT_EQ(shown.loopCount.value_or(0), 0);
    }

    const Clip m_clip = GetParam().make();
};

TEST_P(ForeignDecoders, GiflibShowsWhatWasMeant)
{
    EXPECT_EQ(support::differenceSeenByGiflib(m_clip.file, m_clip.frames), "");
}

TEST_P(ForeignDecoders, FFmpegShowsWhatWasMeant)
{
    expectShownAsMeant(&support::decodeWithFFmpeg);
}

TEST_P(ForeignDecoders, PillowShowsWhatWasMeant)
{
    expectShownAsMeant(&support::decodeWithPillow);
}

TEST_P(ForeignDecoders, ImageMagickShowsWhatWasMeant)
{
    expectShownAsMeant(&support::decodeWithImageMagick);
}

TEST_P(ForeignDecoders, GifsicleFindsNoFault)
{
    EXPECT_EQ(support::faultsFoundByGifsicle(m_clip.file), "");
}

INSTANTIATE_TEST_SUITE_P(Clips, ForeignDecoders,
    testing::Values(ClipCase{"OnePixel", &onePixel}, ClipCase{"EveryTableSize", &everyTableSize},
        ClipCase{"SeveralFullTables", &severalFullTables}, ClipCase{"EndCodeOneBitShort", &endCodeOneBitShort},
        ClipCase{"LongRun", &longRun}, ClipCase{"ExtremeDelays", &extremeDelays},
        ClipCase{"TextWithSlack", &textWithSlack}, ClipCase{"GradientWithDocs", &gradientWithDocs},
        ClipCase{"CappedScreenshot", &cappedScreenshot}),
    [](const auto& tested) { return tested.param.name; });

// The checks above are worth something only if a fault would be seen.

TEST(ForeignDecodersOfDamagedFiles, GifsicleComplains)
{
    Bytes file = severalFullTables().file;
    std::fill_n(file.begin() + 2000, 40, std::uint8_t{0xFF});
    EXPECT_NE(support::faultsFoundByGifsicle(file), "");
    file.resize(500);
    EXPECT_NE(support::faultsFoundByGifsicle(file), "");
}

TEST(ForeignDecodersOfDamagedFiles, GiflibNamesWhatDiffers)
{
    const Clip clip = everyTableSize();
    const auto differenceAfter = [&](const std::function<void(std::vector<IndexedFrame>&)>& change) {
        std::vector<IndexedFrame> meant = clip.frames;
        change(meant);
        return support::differenceSeenByGiflib(clip.file, meant);
    };
    EXPECT_EQ(differenceAfter([](auto& frames) { frames[3].indices[7] ^= 1U; }), "frame 3: its pixels");
    EXPECT_EQ(differenceAfter([](auto& frames) { frames[16].delayCentiseconds += 1; }), "frame 16: its delay");
    EXPECT_EQ(differenceAfter([](auto& frames) { frames[5].palette[2].b ^= 1U; }), "frame 5: its colour table");
    EXPECT_EQ(differenceAfter([](auto& frames) { frames.pop_back(); }), "17 frames instead of 16");
    EXPECT_EQ(support::differenceSeenByGiflib(clip.file, clip.frames, 1), "another loop count, or none");
}

TEST(ForeignDecodersOfDamagedFiles, OtherDecodersShowOtherPixels)
{
    Clip clip = severalFullTables();
    clip.frames[0].indices[12'345] ^= 1U;
    const std::vector<RGBColor> meant = support::colorsOf(clip.frames[0]);
    EXPECT_FALSE(support::decodeWithFFmpeg(clip.file, 300, 200).pictures.at(0) == meant);
    EXPECT_FALSE(support::decodeWithPillow(clip.file, 300, 200).pictures.at(0) == meant);
    EXPECT_FALSE(support::decodeWithImageMagick(clip.file, 300, 200).pictures.at(0) == meant);
}

} // namespace
} // namespace quillbox
