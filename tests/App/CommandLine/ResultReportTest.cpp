#include "App/CommandLine/ResultReport.h"

#include "App/CommandLine/OptimizerProgress.h"
#include "App/CommandLine/Terminal/ErrorReport.h"

#include <gtest/gtest.h>

#include <new>
#include <string>

namespace quillbox {
namespace {

GIFOptimizer::Result result(std::int64_t byteCount)
{
    GIFOptimizer::Result result;
    result.data = {'G', 'I', 'F', '8', '9', 'a', 0xC0, 0x03, 0x1C, 0x02}; // 960×540
    result.byteCount = byteCount;
    result.frameCount = 40;
    result.sourceFrameCount = 90;
    result.colorCount = 64;
    result.effectiveFPS = 12;
    result.usedDithering = true;
    result.durationSeconds = 3.25;
    return result;
}

TEST(ResultReport, PutsTheFieldsOfTheJSONObjectInTheirOrder)
{
    const auto report
        = ResultReport::jsonLine({.result = result(1234567), .preset = ExportPreset::slack, .output = "a \"b\".gif"});
    EXPECT_EQ(report,
        R"({"byteCount":1234567,"frameCount":40,"sourceFrameCount":90,"colorCount":64,"effectiveFPS":12,)"
        R"("usedDithering":true,"durationSeconds":3.25,"output":"a \"b\".gif","width":960,"height":540,)"
        R"("overBudget":false})"
        "\n");
}

TEST(ResultReport, WritesJSONEvenForANameThatIsNoText)
{
    const auto report
        = ResultReport::jsonLine({.result = result(1), .preset = ExportPreset::slack, .output = "\xff.gif"});
    EXPECT_NE(report.find("\"output\":\"\xEF\xBF\xBD.gif\""), std::string::npos) << report;
}

TEST(ResultReport, SaysItInOneHumanLine)
{
    EXPECT_EQ(ResultReport::humanLine({.result = result(1234567), .preset = ExportPreset::slack, .output = "a.gif"}),
        "a.gif: 1.2 MB, 40 frames, 64 colours, 12 fps, 3.3 s, dithered\n");
}

TEST(ResultReport, NamesStandardOutputInWords)
{
    const auto clip = result(1234567);
    const auto line = ResultReport::humanLine({.result = clip, .preset = ExportPreset::slack, .output = "-"});
    EXPECT_TRUE(line.starts_with("standard output: 1.2 MB, ")) << line;
}

TEST(ResultReport, UsesTheSingularForOne)
{
    auto one = result(999);
    one.frameCount = 1;
    one.colorCount = 1;
    one.usedDithering = false;
    EXPECT_EQ(ResultReport::humanLine({.result = one, .preset = ExportPreset::slack, .output = "a.gif"}),
        "a.gif: 999 B, 1 frame, 1 colour, 12 fps, 3.3 s, not dithered\n");
}

TEST(ResultReport, WarnsOfAFileOverItsBudgetByOneByte)
{
    EXPECT_FALSE(
        ResultReport::isOverBudget({.result = result(2'000'000), .preset = ExportPreset::slack, .output = "a.gif"}));
    EXPECT_TRUE(
        ResultReport::isOverBudget({.result = result(2'000'001), .preset = ExportPreset::slack, .output = "a.gif"}));
    EXPECT_EQ(
        ResultReport::humanLine({.result = result(10'400'000), .preset = ExportPreset::github, .output = "a.gif"}),
        "a.gif: 10.4 MB, 40 frames, 64 colours, 12 fps, 3.3 s, dithered; over the 10 MB budget of GitHub: record less, "
        "or a smaller part of the screen\n");
    const auto large = result(10'400'000);
    EXPECT_EQ(ResultReport::humanLine(
                  {.result = large, .preset = ExportPreset::github, .output = "a.gif", .isOfFrames = true}),
        "a.gif: 10.4 MB, 40 frames, 64 colours, 12 fps, 3.3 s, dithered; over the 10 MB budget of GitHub: try "
        "--max-width, --crop, fewer frames or another --preset\n");
}

std::string lossOf(std::int64_t pictures, bool isRateLowered)
{
    const auto clip = result(1);
    const auto line = ResultReport::humanLine({.result = clip,
        .preset = ExportPreset::slack,
        .output = "a",
        .pictures = pictures,
        .isRateLowered = isRateLowered});
    const auto place = line.find("; ");
    return place == std::string::npos ? "" : line.substr(place);
}

TEST(ResultReport, SaysWhatBecameOfThePicturesWhereFewerThanNineTenthsAreLeft)
{
    EXPECT_EQ(lossOf(0, false), "") << "nobody counted";
    EXPECT_EQ(lossOf(44, false), "") << "40 of 44 are more than nine tenths";
    EXPECT_EQ(lossOf(45, false), "; 45 pictures, 40 kept: changes of less than 1 % merge (--precise keeps them)\n");
    EXPECT_EQ(lossOf(90, true),
        "; 90 pictures, 40 kept: at most 12 a second, and changes of less than 1 % merge (--precise keeps them)\n");
}

TEST(ResultReport, CountsThePicturesForPrograms)
{
    const auto clip = result(1);
    const auto report
        = ResultReport::jsonLine({.result = clip, .preset = ExportPreset::slack, .output = "a", .pictures = 45});
    EXPECT_NE(report.find("\"pictureCount\":45"), std::string::npos) << report;
}

TEST(ResultReport, RoundsKilobytesToWholeOnes)
{
    EXPECT_EQ(
        ResultReport::humanLine({.result = result(1501), .preset = ExportPreset::slack, .output = "a"}).substr(0, 8),
        "a: 2 KB,");
    EXPECT_EQ(ResultReport::humanLine({.result = result(999'999), .preset = ExportPreset::slack, .output = "a"})
                  .substr(0, 11),
        "a: 1000 KB,");
}

struct PreciseClip {
    PreciseOptimizer::Result result;
    PreciseOptimizer::Config config = PreciseOptimizer::Config::of(ExportPreset::slack);

    [[nodiscard]] ResultReport::Clip clip() const
    {
        return {result.clip, ExportPreset::slack, "a.gif", ResultReport::Clip::Precise{result, config}};
    }
};

TEST(ResultReport, SaysThatAPreciseClipLacksNothing)
{
    const PreciseClip precise{.result = {.clip = result(1234567)}};
    EXPECT_EQ(
        ResultReport::humanLine(precise.clip()), "a.gif: 1.2 MB, 40 frames, 64 colours, 3.3 s, every change kept\n");
}

TEST(ResultReport, SaysWhatAPreciseClipGaveUp)
{
    PreciseClip precise{.result = {.clip = result(1234567), .qualityDecibels = 40, .lossDecibels = 2.34}};
    EXPECT_EQ(ResultReport::humanLine(precise.clip()),
        "a.gif: 1.2 MB, 40 frames, 64 colours, 3.3 s; to fit: picture 2.3 dB less exact\n");
    precise.result.thinnedFrames = 1;
    precise.result.scale = 0.8;
    EXPECT_EQ(ResultReport::humanLine(precise.clip()),
        "a.gif: 1.2 MB, 40 frames, 64 colours, 3.3 s; to fit: picture 2.3 dB less exact, 1 change left out, "
        "20 % narrower\n");
}

TEST(ResultReport, SaysOfAPreciseClipWhatItsRateHadNoRoomFor)
{
    PreciseClip precise{.result = {.clip = result(1234567)}};
    auto clip = precise.clip();
    clip.pictures = 80;
    EXPECT_EQ(ResultReport::humanLine(clip), "a.gif: 1.2 MB, 40 frames, 64 colours, 3.3 s, every change kept\n")
        << "frames that are alike once they are shrunk";
    clip.isRateLowered = true;
    EXPECT_EQ(ResultReport::humanLine(clip),
        "a.gif: 1.2 MB, 40 frames, 64 colours, 3.3 s; 80 pictures, 40 kept: at most 30 a second (--max-fps)\n");
    precise.result.thinnedFrames = 2;
    EXPECT_EQ(ResultReport::humanLine(clip),
        "a.gif: 1.2 MB, 40 frames, 64 colours, 3.3 s; to fit: 2 changes left out; 80 pictures, 42 kept: at most 30 a "
        "second (--max-fps)\n");
    precise.result.thinnedFrames = 40;
    EXPECT_EQ(
        ResultReport::humanLine(clip), "a.gif: 1.2 MB, 40 frames, 64 colours, 3.3 s; to fit: 40 changes left out\n");
}

TEST(ResultReport, AddsToTheJSONObjectWhatAPreciseClipGaveUp)
{
    const PreciseClip precise{.result
        = {.clip = result(5), .qualityDecibels = 40.126, .lossDecibels = 2.5, .thinnedFrames = 3, .scale = 0.75}};
    const std::string report = ResultReport::jsonLine(precise.clip());
    EXPECT_NE(report.find(R"("overBudget":false,"precise":true,"qualityDecibels":40.13,"lossDecibels":2.5,)"
                          R"("thinnedFrames":3,"scale":0.75})"),
        std::string::npos)
        << report;
}

TEST(ResultReport, ComparesAPreciseClipWithItsOwnBudget)
{
    PreciseClip precise{.result = {.clip = result(1'000'001)}};
    EXPECT_FALSE(ResultReport::isOverBudget(precise.clip()));
    precise.config.targetBytes = 1'000'000;
    EXPECT_TRUE(ResultReport::isOverBudget(precise.clip()));
    const auto line = ResultReport::humanLine(precise.clip());
    EXPECT_NE(line.find("; over the 1.0 MB of --max-size: record less"), std::string::npos) << line;
    auto ofFrames = precise.clip();
    ofFrames.isOfFrames = true;
    const auto tip = ResultReport::humanLine(ofFrames);
    EXPECT_NE(tip.find("; over the 1.0 MB of --max-size: try --max-width, --crop or fewer frames"), std::string::npos)
        << tip;
}

TEST(ErrorReport, KeepsAMessageOnOneLine)
{
    EXPECT_EQ(ErrorReport::oneLine("a\nb\x1b[2Jc\x7F"), "a\\nb\\x1b[2Jc\\x7f");
    EXPECT_EQ(ErrorReport::oneLine("größe 1×2"), "größe 1×2");
}

TEST(ErrorReport, ExplainsALackOfMemory)
{
    EXPECT_EQ(ErrorReport::messageFor(std::bad_alloc()),
        "there is not enough memory for these frames; use fewer or smaller ones");
}

TEST(OptimizerProgress, NamesThePaletteAmongThePresetsItsColoursAndThePercentage)
{
    const auto slack = ExportPreset::slack;
    EXPECT_EQ(progressText({.attempt = 2, .colors = 48, .framesDone = 10, .frameCount = 40}, slack),
        "palette 2 of 5: 48 colours, 25 %");
    EXPECT_EQ(progressText({.attempt = 9, .colors = 64, .framesDone = 1, .frameCount = 3}, slack),
        "palette 1 of 5: 64 colours, 33 %");
    EXPECT_EQ(progressText({.attempt = 1, .colors = 64, .framesDone = 0, .frameCount = 0}, slack),
        "palette 1 of 5: 64 colours, 0 %");
    EXPECT_EQ(progressText({.attempt = 5, .colors = 64, .framesDone = 7, .frameCount = 7}, ExportPreset::docs),
        "palette 5 of 5: 64 colours, 100 %");
}

} // namespace
} // namespace quillbox
