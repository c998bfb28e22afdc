#include "App/CommandLine/ArgumentText.h"
#include "App/CommandLine/CommandLine.h"

// Shadowing and sign conversions are CLI11's own affair.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
#pragma GCC diagnostic ignored "-Wshadow"
#pragma GCC diagnostic ignored "-Wsign-conversion"
#include <CLI/CLI.hpp>
#pragma GCC diagnostic pop

#include <array>
#include <optional>
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
    bool select = false;
    std::string duration;
    bool copy = false;
};

constexpr const char* overview = R"(Turns a part of the screen, or a clip, into a small animated GIF.
Without a command: the application in the tray, from where everything can be done with the mouse.

Examples:
  quillbox                                                (starts the application, or shows it)
  quillbox toggle                                         (for a key binding: record, then stop and copy)
  quillbox record --region 100,100,640x480 --duration 5
  quillbox encode demo.y4m
  quillbox encode --help)";

constexpr const char* encodeExamples = R"(Examples:
  quillbox encode -o steps.gif step1.png step2.png step3.png --source-fps 1
  ffmpeg -i clip.mp4 -f yuv4mpegpipe - | quillbox encode -o clip.gif -
  quillbox encode --raw 1280x720 --preset github capture.rgba)";

constexpr const char* recordExamples = R"(Examples:
  quillbox record --region 0,0,800x600 --duration 10
  quillbox record --select --copy --duration 5
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
    if (arguments.select == (command.count("--region") > 0))
        throw UsageError("name the region with --region X,Y,WxH, or drag it out with --select");
    if (!arguments.select) {
        options.region = ArgumentText::region(arguments.region);
        if (!options.region)
            throw UsageError("--region: \"" + arguments.region
                + "\" is not a region; write it like 100,50,640x480 (left, top, size)");
    }
    options.copy = arguments.copy;
    if (options.copy && options.out.output == standardStreamName)
        throw UsageError("--copy: the clipboard needs a file; leave out -o - or --copy");
    if (command.count("--duration") > 0) {
        options.durationSeconds = ArgumentText::duration(arguments.duration);
        if (!options.durationSeconds)
            throw UsageError(
                "--duration: \"" + arguments.duration + "\" is not a number of seconds above 0, at most 86400");
    }
    return options;
}

/// A command that asks the running application for something.
struct Control {
    const char* name;
    const char* description;
    ControlOptions::Action action;
};

constexpr std::array controls{
    Control{"begin", "Let the user drag out a region and record it", ControlOptions::Action::Begin},
    Control{"stop", "Stop recording, save and copy the clip, and print where it is", ControlOptions::Action::Stop},
    Control{"toggle", "Stop a recording, or begin one", ControlOptions::Action::Toggle},
    Control{"show", "Open the panel", ControlOptions::Action::Show},
    Control{"status", "Print what the application is doing", ControlOptions::Action::Status},
    Control{"quit", "End the application", ControlOptions::Action::Quit},
};

bool answersAsJSON(ControlOptions::Action action)
{
    return action != ControlOptions::Action::Show && action != ControlOptions::Action::Quit;
}

void addControls(CLI::App& app, Arguments& arguments)
{
    for (const Control& control : controls) {
        auto* const command
            = app.add_subcommand(control.name, std::string(control.description) + " (of the running application)");
        if (answersAsJSON(control.action))
            command->add_flag("--json", arguments.json, "Answer with a JSON object");
        command->footer(std::string("Example:\n  quillbox ") + control.name);
    }
}

std::optional<ControlOptions> controlOptions(const CLI::App& app, const Arguments& arguments)
{
    for (const Control& control : controls)
        if (app.got_subcommand(control.name))
            return ControlOptions{control.action, arguments.json};
    return std::nullopt;
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
    record->add_option("--region", arguments.region, "Left, top and size of the region, points of the main display")
        ->type_name("X,Y,WxH");
    record->add_flag("--select", arguments.select, "Drag the region out on the screen");
    record->add_option("--duration", arguments.duration, "Stop after so many seconds (default: Ctrl-C stops)")
        ->type_name("S");
    addOutputOptions(*record, arguments, "a dated file in the folder Quillbox of your videos");
    record->add_flag("--copy", arguments.copy, "Put the clip on the clipboard, too");
    record->footer(recordExamples);

    addControls(app, arguments);
    auto* const history = app.add_subcommand("history", "List the clips made lately, newest first");
    history->add_flag("--json", arguments.json, "Print them as a JSON array");
    history->footer("Example:\n  quillbox history --json");

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
    if (history->parsed())
        return HistoryOptions{arguments.json};
    if (const auto control = controlOptions(app, arguments))
        return *control;
    return DesktopOptions{};
}

} // namespace quillbox
