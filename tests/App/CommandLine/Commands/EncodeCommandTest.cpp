#include "ProgramFixture.h"

#include "Encoding/GIFEncoder.h"
#include "Encoding/GIFOptimizer.h"
#include "Encoding/Precise/PreciseOptimizer.h"
#include "support/ForeignDecoders.h"
#include "support/GifDecoding.h"
#include "support/Pictures.h"

#include <nlohmann/json.hpp>

#include <QImage>

#include <optional>

namespace quillbox {
namespace {

class EncodeCommand : public ProgramFixture {
protected:
    static std::vector<RGBAFrame> scrollingText()
    {
        std::vector<RGBAFrame> frames;
        for (int i = 0; i < 30; ++i)
            frames.push_back(support::textLike(120, 80, i * 3));
        return frames;
    }

    /// What the same frames give without the program.
    static Bytes expected(const std::vector<RGBAFrame>& frames, const GIFOptimizer::Config& config)
    {
        return GIFOptimizer::optimize(frames, config).data;
    }

    /// Each frame so many times.
    static std::vector<RGBAFrame> repeated(const std::vector<RGBAFrame>& frames, int times)
    {
        std::vector<RGBAFrame> all;
        for (const RGBAFrame& frame : frames)
            all.insert(all.end(), static_cast<std::size_t>(times), frame);
        return all;
    }

    static RGBAFrame frameOf(const QImage& image)
    {
        const auto converted = image.convertToFormat(QImage::Format_RGBA8888);
        const auto* const start = converted.constBits();
        return {image.width(), image.height(), Bytes(start, start + converted.sizeInBytes())};
    }
};

TEST_F(EncodeCommand, MakesOfRawFramesTheVeryFileThatTheOptimizerMakes)
{
    const auto frames = scrollingText();
    writeRaw("text.rgba", frames);
    const auto result = shell("quillbox encode --raw 120x80 text.rgba");
    EXPECT_EQ(result.exitStatus, 0) << result.errors;
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(bytesOf("text.gif"), expected(frames, {}));
    EXPECT_EQ(fileNames(), (std::set<std::string>{"text.gif", "text.rgba"}));
}

TEST_F(EncodeCommand, MakesTheSameFileOfFramesThatExceedTheMemory)
{
    const auto result
        = shell("head -c 40000000 /dev/urandom > noise.rgba; export XDG_CACHE_HOME=$PWD/cache;"
                " for memory in 2000 0; do cat noise.rgba | QUILLBOX_RECORDING_MEMORY=$memory quillbox encode"
                " --raw 1000x500 --source-fps 24 --preset docs -o $memory.gif - || exit; done;"
                " quillbox encode --raw 1000x500 --source-fps 24 --preset docs -o file.gif noise.rgba");
    EXPECT_EQ(result.exitStatus, 0) << result.errors;
    EXPECT_TRUE(bytesOf("0.gif") == bytesOf("2000.gif"));
    EXPECT_TRUE(bytesOf("0.gif") == bytesOf("file.gif")) << "which is read again instead of kept";
    EXPECT_TRUE(fileNames().contains("cache")) << "where the pixels went";
}

TEST_F(EncodeCommand, MakesTheSameFileWithAnyNumberOfThreads)
{
    const auto made = shell(
        "head -c 8000000 /dev/urandom > noise.rgba; " // pictures that two threads read and shrink
        "ffmpeg -v error -f lavfi -i testsrc=size=320x240:rate=12:duration=1 -pix_fmt yuv420p -f yuv4mpegpipe a.y4m");
    ASSERT_EQ(made.exitStatus, 0) << made.errors;
    for (const std::string input : {"--raw 1000x500 noise.rgba", "--raw 1000x500 - < noise.rgba", "a.y4m",
             "--precise a.y4m", "--precise --colors 8 --max-width 200 --raw 1000x500 noise.rgba"}) {
        const auto result = shell("for threads in 1 2 5; do quillbox encode --force --threads $threads -o $threads.gif "
            + input + " || exit; done");
        ASSERT_EQ(result.exitStatus, 0) << result.errors;
        for (const std::string threads : {"2", "5"})
            EXPECT_TRUE(bytesOf(threads + ".gif") == bytesOf("1.gif")) << input << " with " << threads;
    }
}

TEST_F(EncodeCommand, ReadsWithNoMoreThreadsThanAllowed)
{
#ifdef QUILLBOX_THREAD_SANITIZER
    GTEST_SKIP() << "the sanitizer has threads of its own";
#endif
    for (const std::string mode : {"", "--precise"}) {
        for (const int threads : {1, 2}) {
            // What the pipe doesn't hold has been read when all has been written; the input goes on until then.
            const auto counted = shell("rm -f in; mkfifo in; \"$program\" encode -q --force --threads "
                + std::to_string(threads) + " " + mode
                + " --raw 1000x500 -o a.gif - < in & exec 3> in; head -c 20000000 /dev/zero >&3; "
                  "ls /proc/$!/task | wc -l; exec 3>&-; wait $!");
            EXPECT_EQ(counted.exitStatus, 0) << counted.errors;
            EXPECT_EQ(counted.output, std::to_string(threads) + "\n") << mode;
        }
    }
}

TEST_F(EncodeCommand, HandsEveryOptionToTheOptimizer)
{
    const auto frames = scrollingText();
    writeRaw("text.rgba", frames);
    const auto result
        = shell("quillbox encode --raw 120x80 --preset docs --source-fps 60 --dither always -o out.gif text.rgba");
    EXPECT_EQ(result.exitStatus, 0) << result.errors;
    const GIFOptimizer::Config config{.preset = ExportPreset::docs, .sourceFPS = 60, .ditheringOverride = true};
    EXPECT_EQ(bytesOf("out.gif"), expected(frames, config));
    EXPECT_NE(bytesOf("out.gif"), expected(frames, {})) << "the options make a difference";
    EXPECT_EQ(shell("quillbox encode --raw 120x80 --dither never -o never.gif text.rgba").exitStatus, 0);
    EXPECT_EQ(bytesOf("never.gif"), expected(frames, {.ditheringOverride = false}));
}

TEST_F(EncodeCommand, ReadsRawFramesFromStandardInput)
{
    const auto frames = scrollingText();
    writeRaw("text.rgba", frames);
    EXPECT_EQ(shell("cat text.rgba | quillbox encode --raw 120x80 -o out.gif -").exitStatus, 0);
    EXPECT_EQ(bytesOf("out.gif"), expected(frames, {}));
}

TEST_F(EncodeCommand, SaysInOneLineWhatItMade)
{
    writeRaw("text.rgba", scrollingText());
    const auto result = shell("quillbox encode --raw 120x80 text.rgba");
    EXPECT_EQ(lineCount(result.output), 1);
    EXPECT_EQ(result.output.find("text.gif: "), 0U) << result.output;
}

TEST_F(EncodeCommand, DescribesTheResultAsJSON)
{
    writeRaw("wide.rgba", std::vector(3, support::solid(1200, 10, support::gray(9))));
    const auto result = shell("quillbox encode --raw 1200x10 --json wide.rgba");
    ASSERT_EQ(result.exitStatus, 0) << result.errors;
    EXPECT_EQ(lineCount(result.output), 1);
    const auto object = nlohmann::ordered_json::parse(result.output);
    std::vector<std::string> keys;
    for (const auto& item : object.items())
        keys.push_back(item.key());
    EXPECT_EQ(keys,
        (std::vector<std::string>{"byteCount", "frameCount", "sourceFrameCount", "colorCount", "effectiveFPS",
            "usedDithering", "durationSeconds", "output", "width", "height", "overBudget", "pictureCount"}));
    EXPECT_EQ(object["byteCount"], std::filesystem::file_size(path("wide.gif")));
    EXPECT_EQ(object["frameCount"], 1);
    EXPECT_EQ(object["sourceFrameCount"], 3);
    EXPECT_EQ(object["output"], "wide.gif");
    EXPECT_EQ(object["width"], 960) << "the preset's cap, not the input's width";
    EXPECT_EQ(object["height"], 8);
    EXPECT_EQ(object["overBudget"], false);
}

TEST_F(EncodeCommand, WarnsWhenTheClipIsOverBudget)
{
    support::Random random(1);
    writeRaw("noise.rgba", {support::noise(960, 4400, random)}); // 4.2 million pixels, at least half a byte each
    const auto result = shell(
        "quillbox encode --raw 960x4400 noise.rgba && quillbox encode --raw 960x4400 --json --force noise.rgba");
    ASSERT_EQ(result.exitStatus, 0) << result.errors;
    EXPECT_NE(result.output.find("; over the 2 MB budget of Slack"), std::string::npos) << result.output;
    EXPECT_NE(result.output.find("\"overBudget\":true"), std::string::npos);
}

TEST_F(EncodeCommand, TakesImagesOfManyFormatsInTheOrderGiven)
{
    std::vector<RGBAFrame> frames;
    const std::vector<QColor> colors{Qt::red, Qt::green, Qt::blue};
    const std::vector<std::string> names{"c.png", "a.bmp", "b.ppm"};
    for (std::size_t i = 0; i < names.size(); ++i) {
        QImage image(40, 30, QImage::Format_RGB32);
        image.fill(colors[i]);
        ASSERT_TRUE(image.save(QString::fromStdString(path(names[i]))));
        frames.push_back(frameOf(image));
    }
    const auto result = shell("quillbox encode --source-fps 5 c.png a.bmp b.ppm");
    EXPECT_EQ(result.exitStatus, 0) << result.errors;
    EXPECT_EQ(bytesOf("c.gif"), expected(repeated(frames, 6), {})) << "at 30 pictures a second";
}

TEST_F(EncodeCommand, FitsImagesOfOtherSizesIntoTheFirst)
{
    for (const int width : {50, 20, 100}) {
        QImage image(width, width == 100 ? 25 : width / 2, QImage::Format_RGB32);
        image.fill(QColor(width, 0, 255 - width));
        ASSERT_TRUE(image.save(QString::fromStdString(path(std::to_string(width) + ".png"))));
    }
    const auto result = shell("quillbox encode --background '#00FF00' -o out.gif 50.png 20.png 100.png");
    EXPECT_EQ(result.exitStatus, 0) << result.errors;
    const auto gif = support::decodeWithGiflib(bytesOf("out.gif"));
    EXPECT_EQ(gif.width, 50);
    EXPECT_EQ(gif.height, 25);
    for (const auto& frame : gif.frames)
        EXPECT_TRUE(frame.width == 50 && frame.height == 25) << "no frame lies outside the screen";
    const auto shown = support::decodeWithFFmpeg(bytesOf("out.gif"), 50, 25);
    ASSERT_EQ(shown.pictures.size(), 3U);
    const auto at = [&](std::size_t picture, std::size_t x, std::size_t y) {
        return shown.pictures[picture][y * 50 + x];
    };
    EXPECT_EQ(at(1, 0, 0).g, 255) << "the background beside a smaller one";
    EXPECT_EQ(at(1, 14, 7).g, 255);
    EXPECT_LT(at(1, 15, 7).g, 10) << "which is centred";
    EXPECT_LT(at(1, 34, 16).g, 10);
    EXPECT_EQ(at(1, 35, 17).g, 255);
    EXPECT_EQ(at(2, 25, 5).g, 255) << "a wider one is shrunk to half its height";
    EXPECT_LT(at(2, 0, 6).g, 10);
    EXPECT_LT(at(2, 49, 18).g, 10);
    EXPECT_EQ(at(2, 25, 19).g, 255);
}

TEST_F(EncodeCommand, TakesAJPEG)
{
    QImage image(64, 48, QImage::Format_RGB32);
    image.fill(QColor(200, 30, 30));
    ASSERT_TRUE(image.save(QString::fromStdString(path("photo.jpeg"))));
    EXPECT_EQ(shell("quillbox encode photo.jpeg").exitStatus, 0);
    const auto shown = support::decodeWithFFmpeg(bytesOf("photo.gif"), 64, 48);
    ASSERT_EQ(shown.pictures.size(), 1U);
    EXPECT_NEAR(shown.pictures[0][0].r, 200, 8);
}

TEST_F(EncodeCommand, TakesAnImageFromAPipe)
{
    QImage image(64, 48, QImage::Format_RGB32);
    image.fill(QColor(8, 16, 32));
    ASSERT_TRUE(image.save(QString::fromStdString(path("a.png"))));
    const auto result = shell("mkfifo pipe && (cat a.png > pipe & quillbox encode -o out.gif pipe)");
    EXPECT_EQ(result.exitStatus, 0) << result.errors;
    EXPECT_EQ(bytesOf("out.gif"), expected({frameOf(image)}, {}));
}

TEST_F(EncodeCommand, TakesAStreamFromFFmpeg)
{
    const auto result = shell("ffmpeg -v error -f lavfi -i testsrc=size=160x120:rate=25:duration=2 -pix_fmt yuv420p "
                              "-f yuv4mpegpipe - | quillbox encode --json -o out.gif -");
    ASSERT_EQ(result.exitStatus, 0) << result.errors;
    const auto object = nlohmann::json::parse(result.output);
    EXPECT_EQ(object["sourceFrameCount"], 60) << "at 30 pictures a second";
    EXPECT_EQ(object["pictureCount"], 50);
    EXPECT_EQ(object["width"], 160);
    EXPECT_NEAR(object["durationSeconds"].get<double>(), 2.0, 0.2) << "played at the stream's own rate";
    const auto shown = support::decodeWithFFmpeg(bytesOf("out.gif"), 160, 120);
    EXPECT_EQ(shown.pictures.size(), object["frameCount"].get<std::size_t>());
}

TEST_F(EncodeCommand, SeesTheColorsOfAStreamInEachOfFFmpegsFormats)
{
    for (const char* format : {"yuv444p", "yuv422p", "yuv420p", "yuv411p", "yuvj444p", "yuvj420p"}) {
        const auto result
            = shell(std::string("ffmpeg -v error -f lavfi -i color=c=0xC86432:size=32x32:duration=0.1 -pix_fmt ")
                + format + " -f yuv4mpegpipe a.y4m -y && quillbox encode --force a.y4m");
        ASSERT_EQ(result.exitStatus, 0) << format << result.errors;
        const auto shown = support::decodeWithFFmpeg(bytesOf("a.gif"), 32, 32);
        EXPECT_NEAR(shown.pictures.at(0).at(0).r, 0xC8, 8) << format; // 15-bit colours are up to 7 off
        EXPECT_NEAR(shown.pictures.at(0).at(0).g, 0x64, 8) << format;
        EXPECT_NEAR(shown.pictures.at(0).at(0).b, 0x32, 8) << format;
    }
}

TEST_F(EncodeCommand, KeepsThePlayingTimeOfAnUnevenAnimation)
{
    std::vector<IndexedFrame> frames;
    for (int i = 0; i < 4; ++i)
        frames.push_back({8, 8, {support::gray(i * 80)}, Bytes(64, 0), i % 2 == 0 ? 100 : 50});
    support::writeFile(path("in.gif"), GIFEncoder::encode(frames));
    const auto result = shell("quillbox encode --json -o out.gif in.gif");
    ASSERT_EQ(result.exitStatus, 0) << result.errors;
    const auto object = nlohmann::json::parse(result.output);
    EXPECT_EQ(object["sourceFrameCount"], 90) << "3 s at 30 frames a second";
    EXPECT_EQ(object["frameCount"], 4);
}

TEST_F(EncodeCommand, TakesTheFramesOfAnAnimationOneEachAtARateThatIsGiven)
{
    std::vector<IndexedFrame> frames;
    for (int i = 0; i < 4; ++i)
        frames.push_back({8, 8, {support::gray(i * 80)}, Bytes(64, 0), i % 2 == 0 ? 100 : 50});
    support::writeFile(path("in.gif"), GIFEncoder::encode(frames));
    const auto result = shell("quillbox encode --json --source-fps 12 -o out.gif in.gif");
    ASSERT_EQ(result.exitStatus, 0) << result.errors;
    EXPECT_EQ(nlohmann::json::parse(result.output)["sourceFrameCount"], 10) << "4 ÷ 12 s at 30 pictures a second";
}

TEST_F(EncodeCommand, WritesTheGIFToStandardOutputAndTheRestBeside)
{
    const auto frames = scrollingText();
    writeRaw("text.rgba", frames);
    const auto result = shell("quillbox encode --raw 120x80 --json -o - text.rgba");
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(Bytes(result.output.begin(), result.output.end()), expected(frames, {}));
    EXPECT_EQ(nlohmann::json::parse(result.errors)["output"], "-");
    EXPECT_EQ(fileNames(), (std::set<std::string>{"text.rgba"}));
}

TEST_F(EncodeCommand, WritesToADeviceThatIsNamed)
{
    writeRaw("text.rgba", scrollingText());
    EXPECT_EQ(shell("quillbox encode --raw 120x80 -o /dev/null text.rgba && test -c /dev/null").exitStatus, 0);
}

TEST_F(EncodeCommand, ReplacesAFileOnlyWhenForced)
{
    const auto frames = scrollingText();
    writeRaw("text.rgba", frames);
    EXPECT_EQ(shell("echo precious > text.gif; quillbox encode --raw 120x80 text.rgba").exitStatus, 1);
    EXPECT_EQ(support::readFile(path("text.gif")), "precious\n");
    EXPECT_EQ(shell("quillbox encode --raw 120x80 --force text.rgba").exitStatus, 0);
    EXPECT_EQ(bytesOf("text.gif"), expected(frames, {}));
    EXPECT_EQ(fileNames(), (std::set<std::string>{"text.gif", "text.rgba"}));
}

TEST_F(EncodeCommand, NeedsNoDisplayAndNoHome)
{
    const auto image = QImage(8, 8, QImage::Format_RGB32);
    ASSERT_TRUE(image.save(QString::fromStdString(path("a.png"))));
    const auto result = shell("env -i \"$program\" encode a.png");
    EXPECT_EQ(result.exitStatus, 0) << result.errors;
    EXPECT_EQ(result.errors, "");
}

TEST_F(EncodeCommand, PrintsNumbersAsTheLanguageHasThem)
{
    const auto image = QImage(8, 8, QImage::Format_RGB32);
    ASSERT_TRUE(image.save(QString::fromStdString(path("a.png"))));
    const auto result = shell("LC_ALL=de_DE.UTF-8 quillbox encode a.png");
    EXPECT_NE(result.output.find(" 0,2 s,"), std::string::npos) << result.output;
    const auto json = shell("LC_ALL=de_DE.UTF-8 quillbox encode --json --force a.png");
    EXPECT_NE(json.output.find("\"durationSeconds\":0.2,"), std::string::npos) << json.output;
}

TEST_F(EncodeCommand, ShowsNoProgressWhereNobodyWatches)
{
    writeRaw("text.rgba", scrollingText());
    EXPECT_EQ(shell("quillbox encode --raw 120x80 text.rgba").errors, "");
}

TEST_F(EncodeCommand, MakesAPreciseClipThatTheOptimizerMakes)
{
    const auto frames = scrollingText();
    writeRaw("text.rgba", frames);
    const auto config = PreciseOptimizer::Config{.targetBytes = 1'000'000, .maxWidth = 60};
    DistinctFrames distinct = PreciseOptimizer::framesFor(config, 30);
    for (const RGBAFrame& frame : frames)
        distinct.append(frame);
    const auto wanted = PreciseOptimizer::optimize(distinct, config);
    const auto result = shell("quillbox encode --precise --max-size 1M --max-width 60 --json --raw 120x80 text.rgba");
    EXPECT_EQ(result.exitStatus, 0) << result.errors;
    EXPECT_EQ(bytesOf("text.gif"), wanted.clip.data);
    const auto report = nlohmann::json::parse(result.output);
    EXPECT_EQ(report["precise"], true);
    EXPECT_EQ(report["frameCount"], 30);
    EXPECT_EQ(report["width"], 60);
}

} // namespace
} // namespace quillbox
