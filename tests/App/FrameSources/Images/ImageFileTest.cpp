#include "App/FrameSources/Images/ImageFile.h"

#include "App/FrameSources/Images/AnimatedPNG.h"
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
