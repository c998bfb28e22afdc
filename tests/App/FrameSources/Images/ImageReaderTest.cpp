#include "App/FrameSources/Images/ImageReader.h"

#include "App/FrameSources/FrameReadError.h"
#include "App/FrameSources/Transparency.h"
#include "Encoding/GIFEncoder.h"
#include "support/Subprocess.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QColorSpace>
#include <QCoreApplication>
#include <QImage>
#include <QImageReader>
#include <QImageWriter>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/resource.h>
#include <vector>

namespace quillbox {
namespace {

class ImageReaderTest : public testing::Test {
protected:
    [[nodiscard]] std::string path(const std::string& name) const { return (m_folder.path() / name).string(); }

    /// A 3×2 picture whose pixel (x, y) is rgb(x·100, y·200, 50).
    static QImage picture()
    {
        QImage image(3, 2, QImage::Format_RGB32);
        for (int y = 0; y < 2; ++y)
            for (int x = 0; x < 3; ++x)
                image.setPixelColor(x, y, QColor(x * 100, y * 200, 50));
        return image;
    }
    static Bytes pictureBytes()
    {
        return {0, 0, 50, 255, 100, 0, 50, 255, 200, 0, 50, 255, 0, 200, 50, 255, 100, 200, 50, 255, 200, 200, 50, 255};
    }

    [[nodiscard]] RGBAFrame read(const std::string& name) const
    {
        FileByteSource source(path(name));
        return ImageReader::readOne(source, Transparency::defaultBackground, 7);
    }
    [[nodiscard]] std::vector<AnimationTimeline::TimedFrame> readAll(const std::string& name) const
    {
        FileByteSource source(path(name));
        return ImageReader::readAll(source, Transparency::defaultBackground).frames;
    }
    /// The number of pictures that can be read, and what is said of the others.
    [[nodiscard]] std::string outcomeOf(const std::string& name) const
    {
        FileByteSource source(path(name));
        const auto animation = ImageReader::readAll(source, Transparency::defaultBackground);
        const std::string flaw = animation.flaw ? animation.flaw->what() : "";
        return std::to_string(animation.frames.size()) + (animation.flaw ? flaw.substr(flaw.find(": ")) : "");
    }
    [[nodiscard]] std::string complaintAbout(const std::string& name) const
    {
        try {
            (void)read(name);
        } catch (const FrameReadError& error) {
            const std::string message = error.what();
            return message.substr(message.find(name));
        }
        return "none";
    }

private:
    int m_argumentCount = 1;
    std::string m_name = "test";
    char* m_arguments[2]{m_name.data(), nullptr};
    QCoreApplication m_application{m_argumentCount, m_arguments};
    support::TemporaryFolder m_folder;
};

TEST_F(ImageReaderTest, ReadsLosslessFormatsExactly)
{
    for (const char* name : {"a.png", "a.bmp", "a.ppm"}) {
        ASSERT_TRUE(picture().save(QString::fromStdString(path(name)))) << name;
        EXPECT_EQ(read(name), RGBAFrame(3, 2, pictureBytes())) << name;
    }
}

TEST_F(ImageReaderTest, ReadsJPEG)
{
    QImage image(16, 8, QImage::Format_RGB32);
    image.fill(QColor(200, 100, 50));
    ASSERT_TRUE(image.save(QString::fromStdString(path("a.jpg")), "JPG", 100));
    const auto frame = read("a.jpg");
    EXPECT_EQ(frame.width(), 16);
    EXPECT_EQ(frame.height(), 8);
    EXPECT_NEAR(frame.pixels()[0], 200, 3);
    EXPECT_NEAR(frame.pixels()[1], 100, 3);
    EXPECT_NEAR(frame.pixels()[2], 50, 3);
}

TEST_F(ImageReaderTest, GoesByTheContentAndNotByTheName)
{
    ASSERT_TRUE(picture().save(QString::fromStdString(path("really-a-png.jpg")), "PNG"));
    EXPECT_EQ(read("really-a-png.jpg"), RGBAFrame(3, 2, pictureBytes()));
}

TEST_F(ImageReaderTest, ReadsAFileWhoseNameIsNoText)
{
    ASSERT_TRUE(picture().save(QString::fromStdString(path("a.png"))));
    std::filesystem::copy_file(path("a.png"), path("\xff\xfe"));
    EXPECT_EQ(read("\xff\xfe"), RGBAFrame(3, 2, pictureBytes()));
}

TEST_F(ImageReaderTest, LaysTransparentPixelsOnTheBackground)
{
    QImage image(3, 1, QImage::Format_RGBA8888);
    image.setPixelColor(0, 0, QColor(10, 20, 30, 0));
    image.setPixelColor(1, 0, QColor(10, 20, 30, 51)); // a fifth
    image.setPixelColor(2, 0, QColor(10, 20, 30, 255));
    ASSERT_TRUE(image.save(QString::fromStdString(path("clear.png"))));
    const RGBAFrame onWhite = read("clear.png");
    EXPECT_EQ(onWhite.pixels(), (Bytes{255, 255, 255, 255, 206, 208, 210, 255, 10, 20, 30, 255}));
    FileByteSource source(path("clear.png"));
    const RGBAFrame onBlue = ImageReader::readOne(source, RGBColor(0, 0, 200), 1);
    EXPECT_EQ(onBlue.pixels(), (Bytes{0, 0, 200, 255, 2, 4, 166, 255, 10, 20, 30, 255}));
}

TEST_F(ImageReaderTest, ConvertsAnEmbeddedProfileToSRGB)
{
    for (const auto format : {QImage::Format_RGB32, QImage::Format_ARGB32, QImage::Format_RGBA64}) {
        QImage image(2, 1, format);
        image.setPixelColor(0, 0, QColor(255, 255, 255));
        image.setPixelColor(1, 0, QColor(100, 150, 50));
        image.setColorSpace(QColorSpace(QColorSpace::DisplayP3));
        ASSERT_TRUE(image.save(QString::fromStdString(path("p3.png"))));
        const RGBAFrame frame = read("p3.png");
        EXPECT_EQ(frame.pixels()[0], 255);
        // By the primaries of both: linear light, P3's matrix to XYZ, sRGB's back, and sRGB's curve.
        EXPECT_NEAR(frame.pixels()[4], 83, 1);
        EXPECT_NEAR(frame.pixels()[5], 152, 1);
        EXPECT_NEAR(frame.pixels()[6], 23, 1);
    }
}

TEST_F(ImageReaderTest, TurnsAPictureUprightAsItsMetadataSays)
{
    QImageWriter writer(QString::fromStdString(path("turned.jpg")), "jpg");
    writer.setTransformation(QImageIOHandler::TransformationRotate90);
    ASSERT_TRUE(writer.write(QImage(30, 20, QImage::Format_RGB32)));
    EXPECT_EQ(read("turned.jpg").width(), 20);
}

TEST_F(ImageReaderTest, ReadsMoreThanQtsUsualLimit)
{
    QImage image(7000, 5000, QImage::Format_RGB32); // 140 MB; the limit is 128
    image.fill(Qt::white);
    ASSERT_TRUE(image.save(QString::fromStdString(path("large.png"))));
    EXPECT_EQ(read("large.png").pixelCount(), 35'000'000);
}

TEST_F(ImageReaderTest, LetsADecoderMakeRoomOnlyForAPictureThatFits)
{
    const int usual = QImageReader::allocationLimit();
    ASSERT_TRUE(picture().save(QString::fromStdString(path("a.png"))));
    (void)read("a.png");
    EXPECT_EQ(QImageReader::allocationLimit(), usual) << "the next file's decoder is asked with little memory";
}

TEST_F(ImageReaderTest, RefusesASideThatAGifCannotHave)
{
    ASSERT_TRUE(QImage(65536, 1, QImage::Format_RGB32).save(QString::fromStdString(path("wide.png"))));
    EXPECT_EQ(complaintAbout("wide.png"), "wide.png: frame 7 is 65536×1; each side must be 1 to 65535 pixels");
}

TEST_F(ImageReaderTest, RefusesWhatIsNoImage)
{
    std::ofstream(path("notes.txt")) << "hello\n";
    EXPECT_EQ(complaintAbout("notes.txt").find("notes.txt: is not an image that can be read; expected PNG"), 0U);
}

TEST_F(ImageReaderTest, RefusesAnEmptyFile)
{
    std::ofstream(path("empty.png"));
    EXPECT_EQ(complaintAbout("empty.png"), "empty.png: holds no frame; at least one is needed");
}

TEST_F(ImageReaderTest, SaysThatATruncatedPictureIsCutOff)
{
    QImage image(100, 100, QImage::Format_RGB32);
    for (int i = 0; i < 10000; ++i)
        image.setPixel(i % 100, i / 100, static_cast<unsigned>(i) * 2654435761U);
    ASSERT_TRUE(image.save(QString::fromStdString(path("cut.png"))));
    std::filesystem::resize_file(path("cut.png"), 2000);
    EXPECT_EQ(complaintAbout("cut.png"), "cut.png: is cut off: not even its first frame is whole; get the file again");
}

/// A GIF of one-pixel frames with these display times, 1/100 s.
Bytes animatedGif(const std::vector<std::int64_t>& delays)
{
    std::vector<IndexedFrame> frames;
    for (const auto delay : delays) {
        const auto level = static_cast<std::uint8_t>(frames.size() * 10);
        frames.push_back({1, 1, {RGBColor(level, 0, 0)}, Bytes{0}, delay});
    }
    return GIFEncoder::encode(frames);
}

TEST_F(ImageReaderTest, ReadsEveryFrameOfAnAnimatedGifWithItsDelay)
{
    support::writeFile(path("a.gif"), animatedGif({10, 20, 5}));
    const auto frames = readAll("a.gif");
    ASSERT_EQ(frames.size(), 3U);
    EXPECT_EQ(frames[0].milliseconds, 100);
    EXPECT_EQ(frames[1].milliseconds, 200);
    EXPECT_EQ(frames[2].milliseconds, 50);
    EXPECT_EQ(frames[2].frame.pixels(), (Bytes{20, 0, 0, 255}));
}

TEST_F(ImageReaderTest, ReadsWhatIsWholeOfAnAnimatedGifAndSaysThatThereShouldBeMore)
{
    support::writeFile(path("a.gif"), animatedGif({10, 20, 5}));
    const auto size = std::filesystem::file_size(path("a.gif"));
    EXPECT_EQ(outcomeOf("a.gif"), "3");
    std::filesystem::resize_file(path("a.gif"), size - 3);
    EXPECT_EQ(outcomeOf("a.gif").find("2: is cut off after 2 whole frame"), 0U) << outcomeOf("a.gif");
}

TEST_F(ImageReaderTest, ReadsWhatIsWholeOfAnAnimatedPNGAndSaysThatThereShouldBeMore)
{
    const auto result = support::runProcess(
        {"ffmpeg", "-v", "error", "-f", "lavfi", "-i", "testsrc=s=32x24:r=5:d=1", "-f", "apng", path("a.png")});
    ASSERT_EQ(result.exitStatus, 0) << result.errors;
    EXPECT_EQ(outcomeOf("a.png"), "5");
    const auto frames = readAll("a.png");
    EXPECT_EQ(frames[4].milliseconds, 200);
    EXPECT_EQ(frames[4].frame.width(), 32);
    EXPECT_NE(frames[4].frame, frames[3].frame);
    std::filesystem::resize_file(path("a.png"), std::filesystem::file_size(path("a.png")) - 20);
    EXPECT_EQ(outcomeOf("a.png").find("4: is cut off after 4 whole frame"), 0U) << outcomeOf("a.png");
}

TEST_F(ImageReaderTest, SaysOfAVideoHowToTakeItsPictures)
{
    support::writeFile(path("a.mkv"), Bytes{0x1A, 0x45, 0xDF, 0xA3, 0, 0, 0, 0});
    EXPECT_EQ(complaintAbout("a.mkv").find("a.mkv: is a video; have FFmpeg"), 0U) << complaintAbout("a.mkv");
    EXPECT_THROW((void)readAll("a.mkv"), FrameReadError);
}

TEST_F(ImageReaderTest, SaysWhichPictureItsDecoderGaveUp)
{
    ASSERT_TRUE(picture().save(QString::fromStdString(path("a.png"))));
    std::string file = support::readFile(path("a.png"));
    const auto data = file.find("IDAT") + 4;
    std::fill_n(file.begin() + static_cast<std::ptrdiff_t>(data), 6, '\xFF');
    std::ofstream(path("a.png"), std::ios::binary) << file;
    EXPECT_EQ(complaintAbout("a.png").find("a.png: frame 7 can't be decoded: "), 0U) << complaintAbout("a.png");
}

/// The most memory that this process has had so far, bytes.
std::int64_t peakMemory()
{
    rusage usage{};
    EXPECT_EQ(::getrusage(RUSAGE_SELF, &usage), 0);
    return std::int64_t{usage.ru_maxrss} * 1024;
}

TEST_F(ImageReaderTest, MakesNoRoomForTheCanvasOfAGifThatIsCutOff)
{
    // A picture of 26 × 0 on 8452 × 25832, and no end.
    support::writeFile(path("a.gif"),
        Bytes{'G', 'I', 'F', '8', '9', 'a', 0x04, 0x21, 0xE8, 0x64, 0x41, 0x54, 0x89, 0x2C, 0, 0x21, 0, 0x04, 0x1A, 0,
            0, 0, 0, 0, 0, 0x2A});
    const auto before = peakMemory();
    EXPECT_EQ(complaintAbout("a.gif"), "a.gif: is cut off: not even its first frame is whole; get the file again");
    EXPECT_THROW((void)readAll("a.gif"), FrameReadError);
    EXPECT_LT(peakMemory() - before, 16 << 20);
}

#if !defined(QUILLBOX_ADDRESS_SANITIZER) && !defined(QUILLBOX_THREAD_SANITIZER) // they hold back what is freed
TEST_F(ImageReaderTest, NeedsMemoryForTheDecodersPictureAndTheFrameOnly)
{
    // A picture of 1 × 1 on 3000 × 2000.
    constexpr std::int64_t canvasBytes = std::int64_t{3000} * 2000 * 4;
    support::writeFile(path("a.gif"),
        Bytes{'G', 'I', 'F', '8', '9', 'a', 0xB8, 0x0B, 0xD0, 0x07, 0x80, 0, 0, //
            0, 0, 0, 255, 255, 255, 0x2C, 0, 0, 0, 0, 1, 0, 1, 0, 0,            //
            2, 2, 0x44, 0x01, 0, 0x3B});
    const auto before = peakMemory();
    EXPECT_EQ(read("a.gif").width(), 3000);
    EXPECT_LT(peakMemory() - before, canvasBytes * 27 / 10);
}
#endif

TEST_F(ImageReaderTest, ReadsOnlyTheFirstFrameWhereOneIsAskedFor)
{
    support::writeFile(path("a.gif"), animatedGif({10, 20, 5}));
    EXPECT_EQ(read("a.gif").pixels(), (Bytes{0, 0, 0, 255}));
}

TEST_F(ImageReaderTest, ReadsEveryFrameOfAnAnimatedWebP)
{
    if (!QImageReader::supportedImageFormats().contains("webp"))
        GTEST_SKIP() << "Qt's WebP plugin is not installed";
    const std::string program = "from PIL import Image; f=[Image.new('RGB',(4,4),(i*60,0,0)) for i in range(3)]; "
                                "f[0].save('"
        + path("a.webp") + "',save_all=True,append_images=f[1:],duration=[40,80,120],lossless=True)";
    const auto result = support::runProcess({"/usr/bin/python3", "-c", program});
    ASSERT_EQ(result.exitStatus, 0) << result.errors;
    const auto frames = readAll("a.webp");
    ASSERT_EQ(frames.size(), 3U);
    EXPECT_EQ(frames[1].milliseconds, 80);
    EXPECT_EQ(frames[2].milliseconds, 120);
    EXPECT_NEAR(frames[2].frame.pixels()[0], 120, 1);
    std::filesystem::resize_file(path("a.webp"), std::filesystem::file_size(path("a.webp")) - 4);
    EXPECT_EQ(outcomeOf("a.webp").find("2: is cut off after 2 whole frame"), 0U) << outcomeOf("a.webp");
}

} // namespace
} // namespace quillbox
