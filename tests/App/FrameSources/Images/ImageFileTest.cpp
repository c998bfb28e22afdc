#include "App/FrameSources/Images/ImageFile.h"

#include "App/FrameSources/Images/AnimatedPNG.h"
#include "App/FrameSources/Images/CompressionBounds.h"
#include "Encoding/GIFEncoder.h"
#include "support/Subprocess.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillbox {
namespace {

using ImageFile::Kind;

/// What ImageMagick or FFmpeg makes, by an output's name.
Bytes made(const std::vector<std::string>& command, const std::string& name)
{
    const support::TemporaryFolder folder;
    const auto path = (folder.path() / name).string();
    auto words = command;
    words.push_back(path);
    const auto result = support::runProcess(words);
    EXPECT_EQ(result.exitStatus, 0) << name << ": " << result.errors;
    const auto text = support::readFile(path);
    return {text.begin(), text.end()};
}

Bytes picture(const std::string& name)
{
    return made({"convert", "-size", "40x30", "plasma:red-blue", "-depth", "8"}, name);
}

Bytes animatedPNG()
{
    return made({"ffmpeg", "-v", "error", "-f", "lavfi", "-i", "testsrc=s=32x24:r=5:d=1", "-plays", "0", "-f", "apng"},
        "a.png");
}

Bytes gif(int frameCount)
{
    std::vector<IndexedFrame> frames;
    for (int i = 0; i < frameCount; ++i)
        frames.push_back({2, 2, {RGBColor(static_cast<std::uint8_t>(i), 0, 0)}, Bytes(4, 0), 10});
    return GIFEncoder::encode(frames);
}

Bytes bytesOf(std::string_view text)
{
    return {text.begin(), text.end()};
}

TEST(ImageFile, TellsKindsByTheirFirstBytes)
{
    EXPECT_EQ(ImageFile::kindOf(picture("a.png")), Kind::png);
    EXPECT_EQ(ImageFile::kindOf(picture("a.jpg")), Kind::jpeg);
    EXPECT_EQ(ImageFile::kindOf(picture("a.bmp")), Kind::bmp);
    EXPECT_EQ(ImageFile::kindOf(picture("a.ppm")), Kind::other);
    EXPECT_EQ(ImageFile::kindOf(animatedPNG()), Kind::animatedPNG);
    EXPECT_EQ(ImageFile::kindOf(gif(1)), Kind::gif);
    EXPECT_EQ(ImageFile::kindOf({}), Kind::other);
    for (const char* name : {"a.mp4", "a.mkv", "a.avi", "a.ogv", "a.flv", "a.ts", "a.mpg", "a.wmv", "a.mov"})
        EXPECT_EQ(
            ImageFile::kindOf(made({"ffmpeg", "-v", "error", "-f", "lavfi", "-i", "testsrc=s=64x48:r=25:d=0.2"}, name)),
            Kind::video)
            << name;
    EXPECT_EQ(ImageFile::kindOf(bytesOf(std::string_view("\0\0\0\x1c"
                                                         "ftypavif",
                  12))),
        Kind::other)
        << "an image";
}

TEST(ImageFile, NoticesEveryFileThatIsCutOff)
{
    for (const Bytes& file : {picture("a.png"), picture("a.jpg"), picture("a.bmp"), gif(3), animatedPNG()}) {
        const auto kind = ImageFile::kindOf(file);
        EXPECT_FALSE(ImageFile::extentOf(file, kind).isCutOff) << static_cast<int>(kind);
        const std::size_t step = file.size() / 200 + 1;
        for (std::size_t length = 40; length < file.size(); length += step) {
            const auto cut = std::span(file).first(length);
            EXPECT_TRUE(ImageFile::extentOf(cut, kind).isCutOff) << static_cast<int>(kind) << " after " << length;
        }
        EXPECT_TRUE(ImageFile::extentOf(std::span(file).first(file.size() - 1), kind).isCutOff);
    }
}

TEST(ImageFile, CountsTheWholeFramesOfAGIFThatIsCutOff)
{
    const Bytes file = gif(5);
    for (std::size_t length = 13; length < file.size(); ++length) {
        const auto cut = std::span(file).first(length);
        const auto extent = ImageFile::extentOf(cut, Kind::gif);
        if (extent.wholeFrames == 0)
            continue;
        const Bytes repaired = ImageFile::withoutCutFrame(cut, Kind::gif, extent);
        EXPECT_EQ(repaired.size(), gif(static_cast<int>(extent.wholeFrames)).size());
        EXPECT_EQ(repaired, gif(static_cast<int>(extent.wholeFrames)));
    }
    EXPECT_EQ(ImageFile::extentOf(std::span(file).first(file.size() - 1), Kind::gif).wholeFrames, 5);
}

/// A GIF of one picture that covers the canvas, which these bytes stand for.
Bytes gifWith(unsigned width, unsigned height, const Bytes& lzw)
{
    Bytes file = gif(1);
    const auto descriptor = static_cast<std::size_t>(std::ranges::find(file, 0x2C) - file.begin());
    for (const std::size_t place : {std::size_t{6}, descriptor + 5})
        for (const auto& [offset, side] : {std::pair{place, width}, {place + 2, height}}) {
            file[offset] = static_cast<std::uint8_t>(side);
            file[offset + 1] = static_cast<std::uint8_t>(side >> 8U);
        }
    const bool hasColors = (file[descriptor + 9] & 0x80U) != 0;
    file.resize(descriptor + 10 + (hasColors ? std::size_t{3} << ((file[descriptor + 9] & 7U) + 1U) : 0));
    file.insert(file.end(), lzw.begin(), lzw.end());
    file.push_back(0x3B);
    return file;
}

TEST(ImageFile, TakesAGIFsPictureForCutOffThatItsDataCannotHold)
{
    const Bytes one{2, 2, 0x44, 0x01, 0}; // clear, index 0, end
    const auto extentOf = [](const Bytes& file) {
        return ImageFile::extentOf(file, Kind::gif);
    };
    EXPECT_EQ(extentOf(gifWith(1, 1, one)).wholeFrames, 1);
    EXPECT_EQ(extentOf(gifWith(1024, 1024, one)).wholeFrames, 1) << "small ones are the decoder's affair";
    EXPECT_EQ(extentOf(gifWith(1024, 1025, one)).wholeFrames, 0);
    EXPECT_TRUE(extentOf(gifWith(1024, 1025, one)).isCutOff);
    EXPECT_EQ(extentOf(gifWith(26, 0, one)).wholeFrames, 0) << "a picture of nothing is no reason for a canvas";
    EXPECT_FALSE(extentOf(gifWith(26, 0, one)).isCutOff);
    const Bytes all(std::size_t{1100} * 1000, 0); // the pixels that need the fewest codes
    const auto real = GIFEncoder::encode(std::vector{IndexedFrame{1100, 1000, {RGBColor(0, 0, 0)}, all, 10}});
    EXPECT_EQ(extentOf(real).wholeFrames, 1);
}

TEST(ImageFile, TakesAJPEGForCutOffThatCannotHoldItsPicture)
{
    for (const std::vector<std::string>& kind : {std::vector<std::string>{}, {"-interlace", "JPEG"}}) {
        std::vector<std::string> command{"convert", "-size", "4000x3000", "xc:gray"};
        command.insert(command.end(), kind.begin(), kind.end());
        Bytes file = made(command, "a.jpg");
        EXPECT_FALSE(ImageFile::extentOf(file, Kind::jpeg).isCutOff) << "nothing takes fewer bytes than one gray";
        const Bytes header{0xFF, static_cast<std::uint8_t>(kind.empty() ? 0xC0 : 0xC2), 0, 11, 8};
        const auto sides = std::search(file.begin(), file.end(), header.begin(), header.end()) + 5;
        ASSERT_LT(sides, file.end());
        std::fill_n(sides, 4, 0xFF);
        EXPECT_TRUE(ImageFile::extentOf(file, Kind::jpeg).isCutOff);
    }
}

TEST(ImageFile, TakesAnAnimatedPNGForCutOffWhoseDataCannotHoldItsCanvas)
{
    Bytes file = animatedPNG();
    constexpr std::size_t width = 16;
    file[width + 2] = 0x04; // 1056 × 24 × 3 bytes
    EXPECT_FALSE(ImageFile::extentOf(file, Kind::animatedPNG).isCutOff);
    file[width + 6] = 0x40; // by 16408
    EXPECT_EQ(ImageFile::extentOf(file, Kind::animatedPNG).wholeFrames, 0);
    EXPECT_TRUE(ImageFile::extentOf(file, Kind::animatedPNG).isCutOff);
}

TEST(AnimatedPNG, GivesEachPartAFileOfItsOwn)
{
    const auto animation = AnimatedPNG::taken(animatedPNG());
    EXPECT_EQ(animation.size, (PixelSize{32, 24}));
    EXPECT_EQ(animation.announcedCount, 5);
    ASSERT_EQ(animation.parts.size(), 5U);
    for (const auto& part : animation.parts) {
        EXPECT_EQ(part.milliseconds, 200);
        EXPECT_EQ(ImageFile::kindOf(part.png), Kind::png);
        EXPECT_FALSE(ImageFile::extentOf(part.png, Kind::png).isCutOff);
    }
}

TEST(CompressionBounds, AreWhatTheBestEncoderWouldReach)
{
    using namespace CompressionBounds;
    EXPECT_EQ(maxPixelsOfLZW(0, 2), 0);
    EXPECT_EQ(maxPixelsOfLZW(3, 2), 36) << "eight codes, for 1 to 8 pixels";
    EXPECT_EQ(maxPixelsOfLZW(2048 * 2, 7), 4096 * 4097 / 2) << "the table is full";
    EXPECT_EQ(maxPixelsOfLZW(2048 * 2 + 1, 7), 4096 * 4097 / 2 + 4096);
    EXPECT_EQ(maxPixelsOfHuffmanJPEG(10), 80 * 64);
    EXPECT_EQ(maxBytesOfDeflate(10), 10320);
}

/// The place of the second part's control data: the size, place, time and disposal.
std::ptrdiff_t secondControl(const Bytes& file)
{
    const std::string_view word = "fcTL";
    const auto first = std::search(file.begin(), file.end(), word.begin(), word.end());
    return std::search(first + 4, file.end(), word.begin(), word.end()) - file.begin() + 4;
}

TEST(AnimatedPNG, KnowsWhatBecomesOfEachPart)
{
    using enum AnimatedPNG::Disposal;
    Bytes file = animatedPNG();
    const auto disposal = static_cast<std::size_t>(secondControl(file)) + 24;
    for (const auto& [byte, meaning] : {std::pair{0, keep}, {1, clear}, {2, restore}}) {
        file[disposal] = static_cast<std::uint8_t>(byte);
        EXPECT_EQ(AnimatedPNG::taken(file).parts.at(1).disposal, meaning);
    }
}

TEST(AnimatedPNG, StopsAtAPartThatDoesNotLieOnTheCanvas)
{
    Bytes file = animatedPNG();
    const auto left = static_cast<std::size_t>(secondControl(file)) + 12;
    file[left + 3] = 32;
    const auto animation = AnimatedPNG::taken(file);
    EXPECT_EQ(animation.parts.size(), 1U);
    EXPECT_EQ(animation.announcedCount, 5);
}

AnimatedPNG::Part part(PixelSize size, std::int64_t left, AnimatedPNG::Disposal disposal, bool isMixed)
{
    AnimatedPNG::Part part;
    part.size = size;
    part.left = left;
    part.disposal = disposal;
    part.isMixed = isMixed;
    return part;
}

TEST(AnimatedPNGCanvas, PutsPartsWhereTheyBelongAndDisposesOfThem)
{
    using enum AnimatedPNG::Disposal;
    AnimatedPNG::Canvas canvas({.width = 3, .height = 1});
    const Bytes red{255, 0, 0, 255};
    EXPECT_EQ(canvas.draw(part({1, 1}, 0, keep, false), red), (Bytes{255, 0, 0, 255, 0, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(canvas.draw(part({1, 1}, 1, clear, false), red), (Bytes{255, 0, 0, 255, 255, 0, 0, 255, 0, 0, 0, 0}));
    EXPECT_EQ(canvas.draw(part({1, 1}, 2, restore, false), red), (Bytes{255, 0, 0, 255, 0, 0, 0, 0, 255, 0, 0, 255}));
    EXPECT_EQ(
        canvas.draw(part({1, 1}, 1, keep, false), Bytes{1, 2, 3, 4}), (Bytes{255, 0, 0, 255, 1, 2, 3, 4, 0, 0, 0, 0}));
}

TEST(AnimatedPNGCanvas, MixesByAlphaWhereThatIsAskedFor)
{
    using enum AnimatedPNG::Disposal;
    AnimatedPNG::Canvas canvas({.width = 1, .height = 1});
    (void)canvas.draw(part({1, 1}, 0, keep, false), Bytes{200, 100, 0, 255});
    EXPECT_EQ(canvas.draw(part({1, 1}, 0, keep, true), Bytes{9, 9, 9, 0}), (Bytes{200, 100, 0, 255}));
    EXPECT_EQ(canvas.draw(part({1, 1}, 0, keep, true), Bytes{0, 0, 255, 51}), (Bytes{160, 80, 51, 255}));
    EXPECT_EQ(canvas.draw(part({1, 1}, 0, keep, true), Bytes{7, 8, 9, 255}), (Bytes{7, 8, 9, 255}));
}

} // namespace
} // namespace quillbox
