#include "App/CommandLine/ArgumentText.h"
#include "App/CommandLine/CommandLine.h"

// Shadowing and sign conversions are CLI11's own affair.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
#pragma GCC diagnostic ignored "-Wshadow"
#pragma GCC diagnostic ignored "-Wsign-conversion"
#include <CLI/CLI.hpp>
#pragma GCC diagnostic pop

#include <string>
#include <utility>

namespace quillbox {
namespace {

/// The texts of all options, as they were written; read once the whole line has been taken apart.
struct Arguments {
    std::string preset = "slack";
    std::string output;
    bool json = false;
    bool force = false;
    // encode
    std::vector<std::string> inputs;
    std::int64_t sourceFPS = 0;
    std::string dither = "auto";
    std::string raw;
    // record
    std::string region;
    std::string duration;
};

constexpr const char* overview = R"(Turns a part of the screen, or a clip, into a small animated GIF.

Examples:
  quillbox record --region 100,100,640x480 --duration 5
  quillbox encode demo.y4m
  quillbox encode --help)";

constexpr const char* encodeExamples = R"(Examples:
  quillbox encode -o steps.gif step1.png step2.png step3.png --source-fps 1
  ffmpeg -i clip.mp4 -f yuv4mpegpipe - | quillbox encode -o clip.gif -
  quillbox encode --raw 1280x720 --preset github capture.rgba)";

constexpr const char* recordExamples = R"(Examples:
  quillbox record --region 0,0,800x600 --duration 10
  quillbox record --region 100,50,640x480 -o demo.gif     (Ctrl-C stops and saves))";

void addOutputOptions(CLI::App& command, Arguments& arguments, const std::string& defaultOutput)
{
    command
        .add_option("--preset", arguments.preset, "Where the GIF is meant for: its limits on size, width and colours")
        ->type_name("slack|github|docs")
        ->capture_default_str();
    command
        .add_option(
            "-o,--output", arguments.output, "The GIF to write, - for standard output (default: " + defaultOutput + ")")
        ->type_name("OUT");
    command.add_flag("--json", arguments.json, "Describe the result as a JSON object");
    command.add_flag("--force", arguments.force, "Replace OUT if it exists");
}

OutputOptions outputOptions(const CLI::App& command, const Arguments& arguments)
{
    OutputOptions options;
    const auto preset = ExportPreset::fromRawValue(arguments.preset);
    if (!preset)
        throw UsageError("--preset: there is no preset \"" + arguments.preset + "\"; use slack, github or docs");
    options.preset = *preset;
    if (command.count("--output") > 0) {
        if (arguments.output.empty())
            throw UsageError("-o: the name is empty; name a file, or - for standard output");
        options.output = arguments.output;
    }
    options.json = arguments.json;
    options.force = arguments.force;
    return options;
}

EncodeOptions encodeOptions(const CLI::App& command, const Arguments& arguments)
{
    EncodeOptions options;
    options.out = outputOptions(command, arguments);
    options.inputs = arguments.inputs;
    if (command.count("--source-fps") > 0) {
        if (arguments.sourceFPS < 1 || arguments.sourceFPS > 1000)
            throw UsageError("--source-fps: use a whole number of frames per second from 1 to 1000");
        options.sourceFPS = arguments.sourceFPS;
    }
    if (arguments.dither == "always")
        options.dithering = true;
    else if (arguments.dither == "never")
        options.dithering = false;
    else if (arguments.dither != "auto")
        throw UsageError("--dither: there is no \"" + arguments.dither + "\"; use auto, always or never");
    if (command.count("--raw") > 0) {
        options.raw = ArgumentText::size(arguments.raw);
        if (!options.raw)
            throw UsageError("--raw: \"" + arguments.raw + "\" is not a size; write it like 1280x720");
    }
    return options;
}

RecordOptions recordOptions(const CLI::App& command, const Arguments& arguments)
{
    RecordOptions options;
    options.out = outputOptions(command, arguments);
    const auto region = ArgumentText::region(arguments.region);
    if (!region)
        throw UsageError(
            "--region: \"" + arguments.region + "\" is not a region; write it like 100,50,640x480 (left, top, size)");
    options.region = *region;
    if (command.count("--duration") > 0) {
        options.durationSeconds = ArgumentText::duration(arguments.duration);
        if (!options.durationSeconds)
            throw UsageError(
                "--duration: \"" + arguments.duration + "\" is not a number of seconds above 0, at most 86400");
    }
    return options;
}

} // namespace

CommandLine::Request CommandLine::parse(int argc, const char* const* argv)
{
    Arguments arguments;
    CLI::App app(overview, "quillbox");
    app.require_subcommand(0, 1);
    app.set_version_flag("--version", "quillbox " QUILLBOX_VERSION, "Print the version");

    auto* const encode = app.add_subcommand("encode", "Turn images, YUV4MPEG2 or raw frames into a GIF");
    encode
        ->add_option("INPUT", arguments.inputs,
            "Images, one frame each; or one animated image; or one YUV4MPEG2 stream; - for standard input")
        ->required()
        ->type_name("");
    addOutputOptions(*encode, arguments, "beside the first INPUT, with the extension gif");
    encode->add_option("--source-fps", arguments.sourceFPS, "Frames per second of the input (default: its own, or 30)")
        ->type_name("N");
    encode->add_option("--dither", arguments.dither, "Mix colours that the palette lacks")
        ->type_name("auto|always|never")
        ->capture_default_str();
    encode
        ->add_option("--raw", arguments.raw, "INPUT is raw RGBA frames of this size, 4 bytes a pixel, without padding")
        ->type_name("WxH");
    encode->footer(encodeExamples);

    auto* const record = app.add_subcommand("record", "Record a region of the screen as a GIF");
    record->add_option("--region", arguments.region, "Left, top and size of the region, pixels of the main display")
        ->required()
        ->type_name("X,Y,WxH");
    record->add_option("--duration", arguments.duration, "Stop after so many seconds (default: Ctrl-C stops)")
        ->type_name("S");
    addOutputOptions(*record, arguments, "a dated file in the folder Quillbox of your videos");
    record->footer(recordExamples);

    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& request) { // help or version
        return Finished{app.exit(request)};
    } catch (const CLI::ParseError& error) {
        std::string help = "quillbox --help";
        for (const auto* const command : app.get_subcommands())
            help = "quillbox " + command->get_name() + " --help";
        throw UsageError(std::string(error.what()) + "; see " + help);
    }
    if (encode->parsed())
        return encodeOptions(*encode, arguments);
    if (record->parsed())
        return recordOptions(*record, arguments);
    std::cout << app.help() << std::flush; // nothing asked for
    return Finished{};
}

} // namespace quillbox
