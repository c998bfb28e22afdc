#include "App/FrameSources/Y4M/YUVConversion.h"

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

struct Weights {
    double red;
    double green;
    double blue;
};

Weights weightsOf(YUVMatrix matrix)
{
    switch (matrix) {
    case YUVMatrix::bt601:
        return {0.299, 0.587, 0.114};
    case YUVMatrix::bt709:
        return {0.2126, 0.7152, 0.0722};
    case YUVMatrix::bt2020:
        break;
    }
    return {0.2627, 0.678, 0.0593};
}

/// The published formula in doubles. Samples are of `format.bitDepth`, perhaps between two levels.
std::array<double, 3> exactColor(double y, double cb, double cr, const YUVFormat& format)
{
    const bool limited = format.range == YUVRange::limited;
    const double unit = std::ldexp(1, format.bitDepth - 8);
    const double largest = std::ldexp(1, format.bitDepth) - 1;
    const double luma = limited ? (y / unit - 16) * 255 / 219 : y * 255 / largest;
    const double chromaFactor = limited ? 255 / (224 * unit) : 255 / largest;
    const double blueness = (cb - 128 * unit) * chromaFactor;
    const double redness = (cr - 128 * unit) * chromaFactor;
    const auto [kr, kg, kb] = weightsOf(format.matrix);
    const double red = luma + 2 * (1 - kr) * redness;
    const double blue = luma + 2 * (1 - kb) * blueness;
    const double green = (luma - kr * red - kb * blue) / kg;
    return {std::clamp(red, 0.0, 255.0), std::clamp(green, 0.0, 255.0), std::clamp(blue, 0.0, 255.0)};
}

std::vector<std::uint8_t> convert(const std::vector<std::uint8_t>& planes, PixelSize size, const YUVFormat& format)
{
    std::vector<std::uint8_t> pixels(static_cast<std::size_t>(size.width * size.height * 4));
    YUVConversion::convert(planes, size, format, pixels);
    return pixels;
}

void append(std::vector<std::uint8_t>& planes, int sample, int bitDepth)
{
    planes.push_back(static_cast<std::uint8_t>(sample));
    if (bitDepth > 8)
        planes.push_back(static_cast<std::uint8_t>(sample >> 8));
}

void expectEveryColorToBeExact(YUVRange range, YUVMatrix matrix)
{
    // One picture for each Cb: Y runs along the rows, Cr down the columns.
    constexpr PixelSize size{256, 256};
    constexpr std::size_t count = 256 * 256;
    const YUVFormat format{.subsampling = ChromaSubsampling::yuv444, .range = range, .matrix = matrix};
    double worst = 0;
    for (int cb = 0; cb < 256; cb += matrix == YUVMatrix::bt601 ? 1 : 5) {
        std::vector<std::uint8_t> planes(count * 3);
        for (std::size_t i = 0; i < count; ++i) {
            planes[i] = static_cast<std::uint8_t>(i % 256);
            planes[count + i] = static_cast<std::uint8_t>(cb);
            planes[count * 2 + i] = static_cast<std::uint8_t>(i / 256);
        }
        const auto pixels = convert(planes, size, format);
        for (std::size_t i = 0; i < count; ++i) {
            const auto exact = exactColor(static_cast<int>(i % 256), cb, static_cast<int>(i / 256), format);
            for (std::size_t channel = 0; channel < 3; ++channel)
                worst = std::max(worst, std::abs(exact[channel] - pixels[i * 4 + channel]));
        }
    }
    EXPECT_LT(worst, 0.51) << "rounded to nearest, but for the precision of the factors";
}

TEST(YUVConversion, RoundsEveryColorOfEachMatrixAndRangeToTheNearest)
{
    for (const auto matrix : {YUVMatrix::bt601, YUVMatrix::bt709, YUVMatrix::bt2020}) {
        expectEveryColorToBeExact(YUVRange::limited, matrix);
        expectEveryColorToBeExact(YUVRange::full, matrix);
    }
}

TEST(YUVConversion, RoundsColorsOfMoreBitsToTheNearest)
{
    constexpr PixelSize size{64, 64};
    support::Random random(3);
    for (const int bits : {9, 10, 12, 14, 16}) {
        for (const auto range : {YUVRange::limited, YUVRange::full}) {
            const YUVFormat format{
                .subsampling = ChromaSubsampling::yuv444, .bitDepth = bits, .range = range, .matrix = YUVMatrix::bt709};
            std::vector<int> samples(64 * 64 * 3);
            std::vector<std::uint8_t> planes;
            for (int& sample : samples) {
                sample = static_cast<int>(random.between(0, (1 << bits) - 1));
                append(planes, sample, bits);
            }
            const auto pixels = convert(planes, size, format);
            double worst = 0;
            for (std::size_t i = 0; i < 64 * 64; ++i) {
                const auto exact = exactColor(samples[i], samples[i + 64 * 64], samples[i + 2 * 64 * 64], format);
                for (std::size_t channel = 0; channel < 3; ++channel)
                    worst = std::max(worst, std::abs(exact[channel] - pixels[i * 4 + channel]));
            }
            EXPECT_LT(worst, bits > 12 ? 0.75 : 0.51) << bits << " bits; of more than 12 the last ones are cut off";
        }
    }
}

TEST(YUVConversion, RoundsOddChromaSizesUp)
{
    EXPECT_EQ(YUVConversion::chromaSize({5, 3}, ChromaSubsampling::yuv420), (PixelSize{3, 2}));
    EXPECT_EQ(YUVConversion::chromaSize({5, 3}, ChromaSubsampling::yuv422), (PixelSize{3, 3}));
    EXPECT_EQ(YUVConversion::chromaSize({5, 3}, ChromaSubsampling::yuv411), (PixelSize{2, 3}));
    EXPECT_EQ(YUVConversion::chromaSize({5, 3}, ChromaSubsampling::mono), (PixelSize{0, 0}));
    EXPECT_EQ(YUVConversion::byteCount({5, 3}, {.subsampling = ChromaSubsampling::yuv420}), 15 + 2 * 6);
    EXPECT_EQ(YUVConversion::byteCount({5, 3}, {.subsampling = ChromaSubsampling::mono}), 15);
    EXPECT_EQ(YUVConversion::byteCount({5, 3}, {.subsampling = ChromaSubsampling::yuv420, .bitDepth = 10}), 54);
    EXPECT_EQ(YUVConversion::byteCount({5, 3}, {.subsampling = ChromaSubsampling::yuv444, .hasAlpha = true}), 60);
}

/// Where the chroma sample of column or row `index` lies, pixels.
double placeOf(double index, int factor, bool inMiddle)
{
    return index * factor + (inMiddle ? (factor - 1) / 2.0 : 0);
}

/// Chroma at a place between samples, linearly; the outermost ones continue.
double interpolated(const std::vector<double>& samples, PixelSize size, double x, double y)
{
    const auto at = [&](double column, double row) {
        const auto i = static_cast<std::size_t>(std::clamp(column, 0.0, static_cast<double>(size.width - 1)));
        const auto j = static_cast<std::size_t>(std::clamp(row, 0.0, static_cast<double>(size.height - 1)));
        return samples[j * static_cast<std::size_t>(size.width) + i];
    };
    const double u = x - std::floor(x);
    const double v = y - std::floor(y);
    const double upper = at(std::floor(x), std::floor(y)) * (1 - u) + at(std::floor(x) + 1, std::floor(y)) * u;
    const double lower = at(std::floor(x), std::floor(y) + 1) * (1 - u) + at(std::floor(x) + 1, std::floor(y) + 1) * u;
    return upper * (1 - v) + lower * v;
}

void expectInterpolatedChroma(ChromaSubsampling subsampling, ChromaSiting siting, int across, int down, int bits)
{
    for (const PixelSize size : {PixelSize{1, 1}, {2, 2}, {5, 3}, {8, 7}, {37, 9}}) {
        const YUVFormat format{.subsampling = subsampling, .siting = siting, .bitDepth = bits};
        const auto chroma = YUVConversion::chromaSize(size, subsampling);
        const auto chromaCount = static_cast<std::size_t>(chroma.width * chroma.height);
        support::Random random(9);
        std::vector<double> luma(static_cast<std::size_t>(size.width * size.height));
        std::vector<double> cb(chromaCount);
        std::vector<double> cr(chromaCount);
        std::vector<std::uint8_t> planes;
        for (auto* const plane : {&luma, &cb, &cr}) {
            for (double& sample : *plane) {
                sample = static_cast<double>(random.between(16 << (bits - 8), 235 << (bits - 8)));
                append(planes, static_cast<int>(sample), bits);
            }
        }
        const bool middleAcross = subsampling == ChromaSubsampling::yuv420 && siting == ChromaSiting::center;
        const bool middleDown = subsampling == ChromaSubsampling::yuv420 && siting != ChromaSiting::topLeft;
        const auto pixels = convert(planes, size, format);
        for (std::size_t i = 0; i < luma.size(); ++i) {
            const auto x = static_cast<double>(i % static_cast<std::size_t>(size.width));
            const auto y = static_cast<double>(i / static_cast<std::size_t>(size.width));
            const double column = (x - placeOf(0, across, middleAcross)) / across;
            const double row = (y - placeOf(0, down, middleDown)) / down;
            const auto exact = exactColor(
                luma[i], interpolated(cb, chroma, column, row), interpolated(cr, chroma, column, row), format);
            for (std::size_t channel = 0; channel < 3; ++channel)
                ASSERT_NEAR(pixels[i * 4 + channel], exact[channel], 0.7)
                    << size.width << "×" << size.height << " " << i;
        }
    }
}

TEST(YUVConversion, InterpolatesChromaBetweenWhereItsSamplesLie)
{
    for (const int bits : {8, 10}) {
        expectInterpolatedChroma(ChromaSubsampling::yuv444, ChromaSiting::center, 1, 1, bits);
        expectInterpolatedChroma(ChromaSubsampling::yuv422, ChromaSiting::center, 2, 1, bits);
        expectInterpolatedChroma(ChromaSubsampling::yuv420, ChromaSiting::center, 2, 2, bits);
        expectInterpolatedChroma(ChromaSubsampling::yuv420, ChromaSiting::left, 2, 2, bits);
        expectInterpolatedChroma(ChromaSubsampling::yuv420, ChromaSiting::topLeft, 2, 2, bits);
        expectInterpolatedChroma(ChromaSubsampling::yuv411, ChromaSiting::center, 4, 1, bits);
    }
}

TEST(YUVConversion, ShowsMonoAsGrey)
{
    const YUVFormat format{.subsampling = ChromaSubsampling::mono, .range = YUVRange::full};
    const auto pixels = convert({0, 100, 255}, {3, 1}, format);
    EXPECT_EQ(pixels, (std::vector<std::uint8_t>{0, 0, 0, 255, 100, 100, 100, 255, 255, 255, 255, 255}));
}

TEST(YUVConversion, ShowsLimitedBlackAndWhiteAsBlackAndWhite)
{
    const YUVFormat format{.subsampling = ChromaSubsampling::yuv444};
    const auto pixels = convert({16, 235, 128, 128, 128, 128}, {2, 1}, format);
    EXPECT_EQ(pixels, (std::vector<std::uint8_t>{0, 0, 0, 255, 255, 255, 255, 255}));
}

TEST(YUVConversion, PassesAlphaOn)
{
    const YUVFormat eight{.subsampling = ChromaSubsampling::yuv444, .hasAlpha = true};
    const auto pixels = convert({16, 235, 128, 128, 128, 128, 0, 77}, {2, 1}, eight);
    EXPECT_EQ(pixels, (std::vector<std::uint8_t>{0, 0, 0, 0, 255, 255, 255, 77}));
    const YUVFormat ten{
        .subsampling = ChromaSubsampling::mono, .bitDepth = 10, .hasAlpha = true, .range = YUVRange::full};
    EXPECT_EQ(convert({0, 0, 0xFF, 3}, {1, 1}, ten), (std::vector<std::uint8_t>{0, 0, 0, 255}));
}

TEST(YUVConversion, TakesSamplesBeyondTheirBitsForTheLargest)
{
    const YUVFormat format{.subsampling = ChromaSubsampling::mono, .bitDepth = 10, .range = YUVRange::full};
    EXPECT_EQ(convert({0xFF, 0xFF}, {1, 1}, format), (std::vector<std::uint8_t>{255, 255, 255, 255}));
}

/// The mean difference to FFmpeg's conversion of the same smooth picture, levels.
double differenceToFFmpeg(const std::string& pixelFormat, const YUVFormat& format)
{
    constexpr PixelSize size{64, 32};
    const auto chroma = YUVConversion::chromaSize(size, format.subsampling);
    std::vector<std::uint8_t> planes;
    const auto addPlane = [&](PixelSize plane, double phase) {
        for (std::int64_t y = 0; y < plane.height; ++y) {
            for (std::int64_t x = 0; x < plane.width; ++x) {
                const double u = static_cast<double>(x) / static_cast<double>(plane.width);
                const double v = static_cast<double>(y) / static_cast<double>(plane.height);
                const double wave = 120 + 60 * std::sin(6 * u + phase) * std::cos(5 * v + phase);
                append(planes, static_cast<int>(std::lround(std::ldexp(wave, format.bitDepth - 8))), format.bitDepth);
            }
        }
    };
    addPlane(size, 0);
    if (format.subsampling != ChromaSubsampling::mono) {
        addPlane(chroma, 1);
        addPlane(chroma, 2);
    }
    const support::TemporaryFolder folder;
    const auto path = (folder.path() / "planes").string();
    support::writeFile(path, {planes.begin(), planes.end()});
    const std::string place = format.siting == ChromaSiting::center ? ":in_h_chr_pos=128:in_v_chr_pos=128"
                                                                    : ":in_h_chr_pos=0:in_v_chr_pos=128";
    const std::string range = format.range == YUVRange::full ? "full" : "limited";
    const std::string matrix = format.matrix == YUVMatrix::bt709 ? "bt709" : "bt601";
    // Two steps, as it takes the nearest sample of chroma when it makes RGB at once.
    const auto filter = "scale=in_range=" + range + ":out_range=" + range + ":in_color_matrix=" + matrix
        + ":out_color_matrix=" + matrix + (format.subsampling == ChromaSubsampling::yuv420 ? place : "")
        + ":flags=bilinear+accurate_rnd+full_chroma_inp,format=yuv444p,scale=in_range=" + range
        + ":in_color_matrix=" + matrix + ":flags=bilinear+accurate_rnd+full_chroma_int";
    const auto result = support::runProcess({"ffmpeg", "-v", "error", "-f", "rawvideo", "-pix_fmt", pixelFormat, "-s",
        "64x32", "-i", path, "-vf", filter, "-f", "rawvideo", "-pix_fmt", "rgba", "-"});
    EXPECT_EQ(result.exitStatus, 0) << result.errors;
    const auto ours = convert(planes, size, format);
    EXPECT_EQ(result.output.size(), ours.size());
    double sum = 0;
    for (std::size_t i = 0; i < std::min(ours.size(), result.output.size()); ++i)
        sum += std::abs(ours[i] - static_cast<std::uint8_t>(result.output[i]));
    return sum / static_cast<double>(ours.size());
}

TEST(YUVConversion, AgreesWithFFmpegWithinALevelInTheMean)
{
    using enum ChromaSubsampling;
    EXPECT_LE(differenceToFFmpeg("yuv444p", {.subsampling = yuv444}), 1);
    EXPECT_LE(differenceToFFmpeg("yuv444p", {.subsampling = yuv444, .matrix = YUVMatrix::bt709}), 1);
    EXPECT_LE(differenceToFFmpeg("yuv444p", {.subsampling = yuv444, .range = YUVRange::full}), 1);
    EXPECT_LE(differenceToFFmpeg("yuv422p", {.subsampling = yuv422}), 1.5) << "it takes its place for the middle";
    EXPECT_LE(differenceToFFmpeg("yuv420p", {.subsampling = yuv420}), 1);
    EXPECT_LE(differenceToFFmpeg("yuv420p", {.subsampling = yuv420, .siting = ChromaSiting::left}), 1);
    EXPECT_LE(
        differenceToFFmpeg("yuv420p10le", {.subsampling = yuv420, .siting = ChromaSiting::left, .bitDepth = 10}), 1);
    EXPECT_LE(differenceToFFmpeg("yuv444p12le", {.subsampling = yuv444, .bitDepth = 12}), 1);
    EXPECT_LE(differenceToFFmpeg("gray", {.subsampling = mono, .range = YUVRange::full}), 1);
}

TEST(YUVConversionDeathTest, RejectsAMissingByte)
{
    EXPECT_DEATH((void)convert({1, 2}, {1, 1}, {.subsampling = ChromaSubsampling::yuv444}), "all of its planes");
}

} // namespace
} // namespace quillbox
