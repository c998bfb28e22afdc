#include "App/CommandLine/CommandLine.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillbox {
namespace {

CommandLine::Request parse(std::vector<const char*> arguments)
{
    arguments.insert(arguments.begin(), "quillbox");
    return CommandLine::parse(static_cast<int>(arguments.size()), arguments.data());
}

EncodeOptions parseEncode(std::vector<const char*> arguments)
{
    arguments.insert(arguments.begin(), "encode");
    return std::get<EncodeOptions>(parse(std::move(arguments)));
}

RecordOptions parseRecord(std::vector<const char*> arguments)
{
    arguments.insert(arguments.begin(), "record");
    return std::get<RecordOptions>(parse(std::move(arguments)));
}

std::string complaintAbout(std::vector<const char*> arguments)
{
    try {
        (void)parse(std::move(arguments));
    } catch (const UsageError& error) {
        return error.what();
    }
    return "none";
}

TEST(CommandLineParser, GivesEncodeItsDefaults)
{
    const auto options = parseEncode({"a.png"});
    EXPECT_EQ(options.inputs, (std::vector<std::string>{"a.png"}));
    EXPECT_EQ(options.out.preset, ExportPreset::slack);
    EXPECT_EQ(options.out.output, std::nullopt);
    EXPECT_EQ(options.rate, std::nullopt);
    EXPECT_EQ(options.colors.matrix, std::nullopt);
    EXPECT_EQ(options.colors.background, RGBColor(255, 255, 255));
    EXPECT_EQ(options.plays, 0);
    EXPECT_FALSE(options.strict);
    EXPECT_FALSE(options.keepGoing);
    EXPECT_EQ(options.dithering, std::nullopt);
    EXPECT_EQ(options.raw, std::nullopt);
    EXPECT_FALSE(options.out.json);
    EXPECT_FALSE(options.out.force);
}

TEST(CommandLineParser, MakesPreciseClipsWithinThePresetsSizeAndWidth)
{
    EXPECT_EQ(parseEncode({"a.png"}).out.precise, std::nullopt);
    EXPECT_EQ(parseEncode({"--precise", "a.png"}).out.precise, PreciseOptimizer::Config::of(ExportPreset::slack));
    EXPECT_EQ(parseRecord({"--select", "--precise", "--preset", "docs"}).out.precise,
        PreciseOptimizer::Config::of(ExportPreset::docs));
}

TEST(CommandLineParser, ReadsTheLimitsOfPreciseClips)
{
    const auto config = parseEncode(
        {"--precise", "--max-size", "1.5M", "--max-width", "640", "--max-fps", "20", "--colors", "100", "a.png"})
                            .out.precise;
    EXPECT_EQ(
        config, (PreciseOptimizer::Config{.targetBytes = 1'500'000, .maxWidth = 640, .maxFPS = 20, .maxColors = 100}));
}

TEST(CommandLineParser, ExplainsWrongLimitsOfPreciseClips)
{
    EXPECT_EQ(complaintAbout({"encode", "--max-fps", "20", "a.png"}), "--max-fps belongs to --precise; add that");
    EXPECT_EQ(complaintAbout({"encode", "--precise", "--max-size", "big", "a.png"}),
        "--max-size: \"big\" is not a size; write it like 750K or 1.5M");
    EXPECT_EQ(complaintAbout({"encode", "--precise", "--max-fps", "51", "a.png"}),
        "--max-fps: use a number of pictures a second from 1 to 50");
    EXPECT_EQ(complaintAbout({"encode", "--precise", "--colors", "1", "a.png"}),
        "--colors: use a number of colours from 2 to 256");
    EXPECT_EQ(complaintAbout({"record", "--select", "--precise", "--max-width", "0"}),
        "--max-width: use a number of pixels from 1 to 65535");
}

TEST(CommandLineParser, ReadsEveryOptionOfEncode)
{
    const auto options = parseEncode({"--preset", "docs", "--source-fps", "25", "--dither", "never", "--raw", "64x48",
        "--json", "--force", "-o", "out.gif", "-"});
    EXPECT_EQ(options.inputs, (std::vector<std::string>{"-"}));
    EXPECT_EQ(options.out.preset, ExportPreset::docs);
    EXPECT_EQ(options.out.output, "out.gif");
    EXPECT_EQ(options.rate, (FrameRate{25, 1}));
    EXPECT_EQ(options.dithering, false);
    EXPECT_EQ(options.raw, (PixelSize{64, 48}));
    EXPECT_TRUE(options.out.json);
    EXPECT_TRUE(options.out.force);
    EXPECT_EQ(parseEncode({"--dither", "always", "a"}).dithering, true);
    EXPECT_EQ(parseEncode({"--dither", "auto", "a"}).dithering, std::nullopt);
}

TEST(CommandLineParser, ReadsWhatTellsHowInputsAreToBeUnderstood)
{
    const auto options = parseEncode({"--matrix", "bt709", "--background", "#102030", "--strict", "--keep-going",
        "--crop", "1,2,3x4", "--max-width", "320", "--threads", "2", "--loop", "3", "-q", "a"});
    EXPECT_EQ(options.colors.matrix, YUVMatrix::bt709);
    EXPECT_EQ(options.colors.background, RGBColor(0x10, 0x20, 0x30));
    EXPECT_TRUE(options.strict);
    EXPECT_TRUE(options.keepGoing);
    EXPECT_EQ(parseEncode({"--raw", "2x2", "--raw-format", "bgr", "a"}).rawFormat, RawFormat::bgr);
    ASSERT_TRUE(options.shape.crop);
    EXPECT_EQ(options.shape.crop->left, 1);
    EXPECT_EQ(options.shape.crop->top, 2);
    EXPECT_EQ(options.shape.crop->size, (PixelSize{3, 4}));
    EXPECT_EQ(options.shape.maxWidth, 320);
    EXPECT_EQ(options.threads, 2);
    EXPECT_EQ(options.plays, 3);
    EXPECT_TRUE(options.out.quiet);
    EXPECT_EQ(parseEncode({"--delay", "0.5", "a"}).rate, (FrameRate{10, 5}));
}

TEST(CommandLineParser, SaysWhatIsWrongWithWhatTellsOfInputs)
{
    EXPECT_EQ(complaintAbout({"encode", "a", "--delay", "0"}),
        "--delay: \"0\" is not a number of seconds from 0.001 to 655.35");
    EXPECT_EQ(complaintAbout({"encode", "a", "--delay", "1", "--source-fps", "1"}),
        "--delay and --source-fps say the same; use one of them");
    EXPECT_EQ(complaintAbout({"encode", "a", "--matrix", "709"}),
        "--matrix: there is no \"709\"; use bt601, bt709 or bt2020");
    EXPECT_EQ(complaintAbout({"encode", "a", "--background", "clear"}),
        "--background: \"clear\" is not a colour; write it like #FFFFFF, white or black");
    EXPECT_EQ(complaintAbout({"encode", "a", "--raw-format", "argb"}),
        "--raw-format: there is no \"argb\"; use rgba, bgra, rgb or bgr");
    for (const char* part : {"640x480", "-1,0,2x2", "0,0,0x2"}) {
        EXPECT_EQ(complaintAbout({"encode", "a", "--crop", part}),
            std::string("--crop: \"") + part + "\" is not a part; write it like 10,20,640x480 (left, top, size)");
    }
    for (const char* size : {"0x0", "65536x1", "1x99999999999999999999"}) {
        EXPECT_EQ(complaintAbout({"encode", "a", "--raw", size}),
            std::string("--raw: \"") + size + "\" can't be; each side must be 1 to 65535 pixels");
    }
    EXPECT_EQ(
        complaintAbout({"encode", "a", "-o", "x.WebP"}), "-o: \"x.WebP\" is no name for a GIF; let it end in .gif");
    EXPECT_EQ(complaintAbout({"help", "dance"}), "help: there is no command \"dance\"; see quillbox --help");
}

TEST(CommandLineParser, RefusesOptionsThatWouldHaveNoEffect)
{
    for (const char* how : {"auto", "always", "never"}) {
        EXPECT_EQ(complaintAbout({"encode", "a", "--precise", "--dither", how}),
            "--dither: --precise mixes no colours; leave out one of them");
    }
    EXPECT_EQ(complaintAbout({"encode", "a", "--raw-format", "rgba"}), "--raw-format belongs to --raw; add that");
    EXPECT_EQ(complaintAbout({"encode", "a", "--raw", "2x2", "--matrix", "bt709"}),
        "--matrix: raw frames are red, green and blue; leave it out");
    EXPECT_EQ(complaintAbout({"encode", "a", "--raw", "2x2", "--raw-format", "bgr", "--background", "white"}),
        "--background: bgr frames have no transparency; leave it out");
}

TEST(CommandLineParser, LaysRawFramesOnABackgroundOnlyWhereOneIsGiven)
{
    EXPECT_EQ(parseEncode({"--raw", "2x2", "a"}).rawBackground, std::nullopt);
    EXPECT_EQ(parseEncode({"--raw", "2x2", "--background", "black", "a"}).rawBackground, RGBColor(0, 0, 0));
}

TEST(CommandLineParser, TakesThePresetInLettersOfAnyCase)
{
    EXPECT_EQ(parseEncode({"--preset", "GitHub", "a"}).out.preset, ExportPreset::github);
    EXPECT_EQ(parseRecord({"--select", "--preset", "DOCS"}).out.preset, ExportPreset::docs);
}

TEST(CommandLineParser, TakesOtherNamesForAGIFAsTheyAre)
{
    for (const char* name : {"x.gif", "x.GIF", "x", "x.tmp", "webp", "a.png/x"})
        EXPECT_EQ(parseEncode({"a", "-o", name}).out.output, name);
}

TEST(CommandLineParser, KeepsTheOrderOfTheInputsWhereverOptionsStand)
{
    const auto options = parseEncode({"b.png", "-o", "x.gif", "a.png", "c.png"});
    EXPECT_EQ(options.inputs, (std::vector<std::string>{"b.png", "a.png", "c.png"}));
}

TEST(CommandLineParser, TakesNamesThatLookLikeOptionsAfterTwoDashes)
{
    EXPECT_EQ(parseEncode({"--", "--json"}).inputs, (std::vector<std::string>{"--json"}));
}

TEST(CommandLineParser, TakesADashForStandardOutput)
{
    EXPECT_EQ(parseEncode({"-o", "-", "a.png"}).out.output, "-");
}

TEST(CommandLineParser, GivesRecordItsDefaults)
{
    const auto options = parseRecord({"--region", "1,2,3x4"});
    EXPECT_EQ(options.region, (CaptureRegion{1, 2, 3, 4}));
    EXPECT_EQ(options.durationSeconds, std::nullopt);
    EXPECT_EQ(options.out.preset, ExportPreset::slack);
}

TEST(CommandLineParser, ReadsEveryOptionOfRecord)
{
    const auto options = parseRecord(
        {"--region", "-1,2,3x4", "--duration", "1.5", "--preset", "github", "-o", "x.gif", "--json", "--force"});
    EXPECT_EQ(options.region, (CaptureRegion{-1, 2, 3, 4}));
    EXPECT_EQ(options.durationSeconds, 1.5);
    EXPECT_EQ(options.out.preset, ExportPreset::github);
    EXPECT_EQ(options.out.output, "x.gif");
    EXPECT_TRUE(options.out.json);
    EXPECT_TRUE(options.out.force);
}

TEST(CommandLineParser, SaysWhatIsWrongAndWhatToDo)
{
    EXPECT_EQ(complaintAbout({"encode"}), "INPUT is required; see quillbox encode --help");
    EXPECT_EQ(complaintAbout({"record"}), "name the region with --region X,Y,WxH, or drag it out with --select");
    EXPECT_EQ(complaintAbout({"dance"}), "The following argument was not expected: dance; see quillbox --help");
    EXPECT_EQ(complaintAbout({"encode", "a", "--preset", "Slacks"}),
        "--preset: there is no preset \"Slacks\"; use slack, github or docs");
    EXPECT_EQ(complaintAbout({"encode", "a", "--source-fps", "0"}),
        "--source-fps: \"0\" is not a number of frames per second; write it like 12, 29.97 or 30000/1001, 1000 at "
        "most");
    EXPECT_EQ(
        complaintAbout({"encode", "a", "--dither", "yes"}), "--dither: there is no \"yes\"; use auto, always or never");
    EXPECT_EQ(complaintAbout({"encode", "a", "--raw", "640"}), "--raw: \"640\" is not a size; write it like 1280x720");
    EXPECT_EQ(
        complaintAbout({"encode", "a", "-o", ""}), "-o: the name is empty; name a file, or - for standard output");
    EXPECT_EQ(complaintAbout({"record", "--region", "all"}),
        "--region: \"all\" is not a region; write it like 100,50,640x480 (left, top, size)");
    EXPECT_EQ(complaintAbout({"record", "--region", "0,0,9x9", "--duration", "0"}),
        "--duration: \"0\" is not a number of seconds above 0, at most 86400");
}

TEST(CommandLineParser, RefusesNumbersThatAreNone)
{
    EXPECT_NE(complaintAbout({"encode", "a", "--source-fps", "fast"}), "none");
    EXPECT_NE(complaintAbout({"encode", "a", "--source-fps", "99999999999999999999"}), "none");
    EXPECT_EQ(complaintAbout({"encode", "a", "--threads", "0"}), "--threads: use a number from 1 to 256");
    EXPECT_EQ(complaintAbout({"encode", "a", "--loop", "65537"}), "--loop: use a number from 0 to 65536");
    EXPECT_EQ(
        complaintAbout({"encode", "a", "--max-width", "wide"}), "--max-width: use a number of pixels from 1 to 65535");
}

TEST(CommandLineParser, TakesNothingForTheDesktopApplication)
{
    EXPECT_TRUE(std::holds_alternative<DesktopOptions>(parse({})));
}

TEST(CommandLineParser, KnowsEveryWishForTheRunningApplication)
{
    using Action = ControlOptions::Action;
    const std::vector<std::pair<const char*, Action>> wishes{{"begin", Action::Begin}, {"stop", Action::Stop},
        {"toggle", Action::Toggle}, {"again", Action::Again}, {"show", Action::Show}, {"status", Action::Status},
        {"quit", Action::Quit}};
    for (const auto& [name, action] : wishes) {
        const auto options = std::get<ControlOptions>(parse({name}));
        EXPECT_EQ(options.action, action) << name;
        EXPECT_FALSE(options.json) << name;
        EXPECT_FALSE(options.precise) << name;
        EXPECT_FALSE(options.preset.has_value()) << name << ": as before";
    }
    EXPECT_TRUE(std::get<ControlOptions>(parse({"status", "--json"})).json);
    EXPECT_NE(complaintAbout({"quit", "--json"}), "none") << "there is no answer to print";
}

TEST(CommandLineParser, TakesHowAClipOfTheApplicationIsToBe)
{
    EXPECT_TRUE(std::get<ControlOptions>(parse({"begin", "--precise"})).precise);
    const auto options = std::get<ControlOptions>(parse({"again", "--precise", "--preset", "docs"}));
    EXPECT_TRUE(options.precise);
    EXPECT_TRUE(options.preset == ExportPreset(ExportPreset::docs));
    EXPECT_EQ(complaintAbout({"again", "--preset", "disk"}),
        "--preset: there is no preset \"disk\"; use slack, github or docs");
    EXPECT_NE(complaintAbout({"stop", "--precise"}), "none") << "it began otherwise";
    EXPECT_NE(complaintAbout({"begin", "--preset", "docs"}), "none");
}

TEST(CommandLineParser, ListsTheHistoryAsTextOrJSON)
{
    EXPECT_FALSE(std::get<HistoryOptions>(parse({"history"})).json);
    EXPECT_TRUE(std::get<HistoryOptions>(parse({"history", "--json"})).json);
}

TEST(CommandLineParser, ReportsOnTheDesktopAsTextOrJSON)
{
    EXPECT_FALSE(std::get<DoctorOptions>(parse({"doctor"})).json);
    EXPECT_TRUE(std::get<DoctorOptions>(parse({"doctor", "--json"})).json);
}

TEST(CommandLineParser, LetsTheRegionBeDraggedOut)
{
    const auto options = parseRecord({"--select", "--copy"});
    EXPECT_EQ(options.region, std::nullopt);
    EXPECT_TRUE(options.copy);
}

TEST(CommandLineParser, WantsExactlyOneWayToTheRegion)
{
    EXPECT_EQ(complaintAbout({"record"}), "name the region with --region X,Y,WxH, or drag it out with --select");
    EXPECT_EQ(complaintAbout({"record", "--select", "--region", "1,2,3x4"}),
        "--region and --select were both given; use one of them to say what to record");
}

TEST(CommandLineParser, CopiesOnlyFiles)
{
    EXPECT_EQ(complaintAbout({"record", "--select", "--copy", "-o", "-"}),
        "--copy: the clipboard needs a file; leave out -o - or --copy");
}

} // namespace
} // namespace quillbox
