#include "App/FrameSources/YUVConversion.h"

#include "support/Random.h"
#include "support/Subprocess.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

namespace quillbox {
namespace {

/// The published formula in doubles.
std::array<double, 3> exactColor(int y, int cb, int cr, YUVRange range)
{
    const bool limited = range == YUVRange::limited;
    const double luma = limited ? (y - 16) * 255.0 / 219 : y;
    const double blueness = (cb - 128) * (limited ? 255.0 / 224 : 1);
    const double redness = (cr - 128) * (limited ? 255.0 / 224 : 1);
    const double red = luma + 2 * (1 - 0.299) * redness;
    const double blue = luma + 2 * (1 - 0.114) * blueness;
    const double green = (luma - 0.299 * red - 0.114 * blue) / 0.587;
    return {std::clamp(red, 0.0, 255.0), std::clamp(green, 0.0, 255.0), std::clamp(blue, 0.0, 255.0)};
}

std::vector<std::uint8_t> convert(
    const std::vector<std::uint8_t>& planes, PixelSize size, ChromaSubsampling subsampling, YUVRange range)
{
    std::vector<std::uint8_t> pixels(static_cast<std::size_t>(size.width * size.height * 4));
    YUVConversion::convert(planes, size, subsampling, range, pixels);
    return pixels;
}

void expectEveryColorToBeExact(YUVRange range)
{
    // One picture for each Cb: Y runs along the rows, Cr down the columns.
    constexpr PixelSize size{256, 256};
    constexpr std::size_t count = 256 * 256;
    double worst = 0;
    for (int cb = 0; cb < 256; ++cb) {
        std::vector<std::uint8_t> planes(count * 3);
        for (std::size_t i = 0; i < count; ++i) {
            planes[i] = static_cast<std::uint8_t>(i % 256);
            planes[count + i] = static_cast<std::uint8_t>(cb);
            planes[count * 2 + i] = static_cast<std::uint8_t>(i / 256);
        }
        const auto pixels = convert(planes, size, ChromaSubsampling::yuv444, range);
        for (std::size_t i = 0; i < count; ++i) {
            const auto exact = exactColor(static_cast<int>(i % 256), cb, static_cast<int>(i / 256), range);
            for (std::size_t channel = 0; channel < 3; ++channel)
                worst = std::max(worst, std::abs(exact[channel] - pixels[i * 4 + channel]));
        }
    }
    EXPECT_LT(worst, 0.51) << "rounded to nearest, but for the precision of the factors";
}

TEST(YUVConversion, RoundsEveryLimitedRangeColorToTheNearest)
{
    expectEveryColorToBeExact(YUVRange::limited);
}

TEST(YUVConversion, RoundsEveryFullRangeColorToTheNearest)
{
    expectEveryColorToBeExact(YUVRange::full);
}

TEST(YUVConversion, RoundsOddChromaSizesUp)
{
    EXPECT_EQ(YUVConversion::chromaSize({5, 3}, ChromaSubsampling::yuv420), (PixelSize{3, 2}));
    EXPECT_EQ(YUVConversion::chromaSize({5, 3}, ChromaSubsampling::yuv422), (PixelSize{3, 3}));
    EXPECT_EQ(YUVConversion::chromaSize({5, 3}, ChromaSubsampling::yuv411), (PixelSize{2, 3}));
    EXPECT_EQ(YUVConversion::chromaSize({5, 3}, ChromaSubsampling::mono), (PixelSize{0, 0}));
    EXPECT_EQ(YUVConversion::byteCount({5, 3}, ChromaSubsampling::yuv420), 15 + 2 * 6);
    EXPECT_EQ(YUVConversion::byteCount({5, 3}, ChromaSubsampling::mono), 15);
}

/// Which chroma sample each pixel of a 5×3 picture shows, told apart by its blue; luma is everywhere the same.
std::vector<int> chromaOfPixels(ChromaSubsampling subsampling)
{
    constexpr PixelSize size{5, 3};
    const auto chroma = YUVConversion::chromaSize(size, subsampling);
    const auto count = static_cast<std::size_t>(chroma.width * chroma.height);
    std::vector<std::uint8_t> planes(15, 126);
    for (std::size_t i = 0; i < count; ++i)
        planes.push_back(static_cast<std::uint8_t>(100 + 5 * i));
    planes.insert(planes.end(), count, 128);
    const auto pixels = convert(planes, size, subsampling, YUVRange::full);
    std::vector<int> samples;
    for (std::size_t i = 0; i < 15; ++i) // blue = 126 + 1.772·(Cb − 128)
        samples.push_back(static_cast<int>(std::lround(((pixels[i * 4 + 2] - 126) / 1.772 + 28) / 5)));
    return samples;
}

TEST(YUVConversion, RepeatsChromaOverThePixelsThatShareIt)
{
    EXPECT_EQ(
        chromaOfPixels(ChromaSubsampling::yuv444), (std::vector{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14}));
    EXPECT_EQ(chromaOfPixels(ChromaSubsampling::yuv422), (std::vector{0, 0, 1, 1, 2, 3, 3, 4, 4, 5, 6, 6, 7, 7, 8}));
    EXPECT_EQ(chromaOfPixels(ChromaSubsampling::yuv420), (std::vector{0, 0, 1, 1, 2, 0, 0, 1, 1, 2, 3, 3, 4, 4, 5}));
    EXPECT_EQ(chromaOfPixels(ChromaSubsampling::yuv411), (std::vector{0, 0, 0, 0, 1, 2, 2, 2, 2, 3, 4, 4, 4, 4, 5}));
}

TEST(YUVConversion, ShowsMonoAsGrey)
{
    const auto pixels = convert({0, 100, 255}, {3, 1}, ChromaSubsampling::mono, YUVRange::full);
    EXPECT_EQ(pixels, (std::vector<std::uint8_t>{0, 0, 0, 255, 100, 100, 100, 255, 255, 255, 255, 255}));
}

TEST(YUVConversion, ShowsLimitedBlackAndWhiteAsBlackAndWhite)
{
    const auto pixels = convert({16, 235, 128, 128, 128, 128}, {2, 1}, ChromaSubsampling::yuv444, YUVRange::limited);
    EXPECT_EQ(pixels, (std::vector<std::uint8_t>{0, 0, 0, 255, 255, 255, 255, 255}));
}

/// The largest difference to FFmpeg's conversion of the same noise.
int differenceToFFmpeg(const std::string& format, ChromaSubsampling subsampling, YUVRange range)
{
    constexpr PixelSize size{64, 32};
    support::Random random(7);
    std::vector<std::uint8_t> planes(static_cast<std::size_t>(YUVConversion::byteCount(size, subsampling)));
    for (auto& byte : planes) // within the limited range: FFmpeg clips what lies outside in its own way
        byte = static_cast<std::uint8_t>(random.between(16, 235));
    const support::TemporaryFolder folder;
    const auto path = (folder.path() / "planes").string();
    support::writeFile(path, planes);
    const auto filter = std::string("scale=in_range=") + (range == YUVRange::full ? "full" : "limited")
        + ":in_color_matrix=bt601:flags=neighbor+accurate_rnd+full_chroma_int";
    const auto result = support::runProcess({"ffmpeg", "-v", "error", "-f", "rawvideo", "-pix_fmt", format, "-s",
        "64x32", "-i", path, "-vf", filter, "-f", "rawvideo", "-pix_fmt", "rgba", "-"});
    EXPECT_EQ(result.exitStatus, 0) << result.errors;
    const auto ours = convert(planes, size, subsampling, range);
    EXPECT_EQ(result.output.size(), ours.size());
    int worst = 0;
    for (std::size_t i = 0; i < std::min(ours.size(), result.output.size()); ++i)
        worst = std::max(worst, std::abs(ours[i] - static_cast<std::uint8_t>(result.output[i])));
    return worst;
}

TEST(YUVConversion, AgreesWithFFmpegWithinTwoLevels)
{
    EXPECT_LE(differenceToFFmpeg("yuv444p", ChromaSubsampling::yuv444, YUVRange::limited), 2);
    EXPECT_LE(differenceToFFmpeg("yuv444p", ChromaSubsampling::yuv444, YUVRange::full), 2);
    EXPECT_LE(differenceToFFmpeg("yuv422p", ChromaSubsampling::yuv422, YUVRange::limited), 2);
    EXPECT_LE(differenceToFFmpeg("yuv420p", ChromaSubsampling::yuv420, YUVRange::limited), 2);
    EXPECT_LE(differenceToFFmpeg("yuv420p", ChromaSubsampling::yuv420, YUVRange::full), 2);
    EXPECT_LE(differenceToFFmpeg("yuv411p", ChromaSubsampling::yuv411, YUVRange::limited), 2);
    EXPECT_LE(differenceToFFmpeg("gray", ChromaSubsampling::mono, YUVRange::full), 2);
}

TEST(YUVConversionDeathTest, RejectsAMissingByte)
{
    EXPECT_DEATH((void)convert({1, 2}, {1, 1}, ChromaSubsampling::yuv444, YUVRange::full), "all of its planes");
}

} // namespace
} // namespace quillbox
