#include "App/CommandLine/Arguments/ArgumentText.h"
#include "App/CommandLine/Arguments/ParserMessages.h"
#include "App/CommandLine/CommandLine.h"
#include "App/CommandLine/Terminal/ErrorReport.h"
#include "App/CommandLine/Terminal/TerminalText.h"
#include "Encoding/GIFEncoder.h"
#include "Translation/Translate.h"

// Shadowing and sign conversions are CLI11's own affair.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
#pragma GCC diagnostic ignored "-Wshadow"
#pragma GCC diagnostic ignored "-Wsign-conversion"
#include <CLI/CLI.hpp>
#pragma GCC diagnostic pop

#include <QtGlobal>

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>

namespace quillbox {
namespace {

/// Also the headings of groups of options are labels.
class HelpFormatter : public CLI::Formatter {
public:
    [[nodiscard]] std::string make_group( // NOLINT(readability-identifier-naming): the parser's name
        std::string group, bool isPositional, std::vector<const CLI::Option*> options) const override
    {
        return CLI::Formatter::make_group(get_label(group), isPositional, std::move(options));
    }
};

/// The texts of all options, as they were written; read once the whole line has been taken apart.
struct Arguments {
    std::string preset = "slack";
    std::string output;
    std::string maxSize;
    std::string maxWidth;
    std::int64_t maxFPS = 0;
    std::int64_t colors = 0;
    // encode
    std::vector<std::string> inputs;
    std::string sourceFPS;
    std::string delay;
    std::string dither = "auto";
    std::string raw;
    std::string matrix;
    std::string background;
    std::string rawFormat = "rgba";
    std::string crop;
    std::string threads;
    std::string loop;
    // record
    std::string region;
    std::string duration;
    // help
    std::string helpTopic;
    // Switches of all commands, together so that they take up no more room than they have to.
    bool json = false;
    bool force = false;
    bool precise = false;
    bool quiet = false;
    bool strict = false;
    bool keepGoing = false;
    bool select = false;
    bool copy = false;
    bool list = false;
    bool discard = false;
};

constexpr const char* overview = QT_TRANSLATE_NOOP("Help",
    "Turns a part of the screen, or a clip, into a small animated GIF.\n"
    "Without a command: the application in the tray, from where everything can be done with the mouse.\n"
    "\n"
    "Examples:\n"
    "  quillbox                      (starts the application, or shows it)\n"
    "  quillbox toggle               (for a key binding: record, then stop and copy)\n"
    "Record a region from a script:\n"
    "  quillbox record --region 100,100,640x480 --duration 3 --force -o demo.gif\n"
    "Encode frames of another program:\n"
    "  ffmpeg -v error -i clip.mp4 -vf format=yuv444p,scale=out_color_matrix=bt709 -f yuv4mpegpipe - \\\n"
    "    | quillbox encode --matrix bt709 -o clip.gif -\n"
    "Record a program in continuous integration, without a display:\n"
    "  xvfb-run -s \"-screen 0 1280x720x24\" \\\n"
    "    sh -c \"my-program & quillbox record --region 0,0,1280x720 --duration 3 -o program.gif\"\n"
    "\n"
    "The commands below have more examples: quillbox encode --help");

constexpr const char* encodeExamples = QT_TRANSLATE_NOOP("Help", R"(Examples:
  quillbox encode -o steps.gif step1.png step2.png step3.png --source-fps 1
  quillbox encode -o steps.gif step%02d.png --delay 1.5
  ffmpeg -i clip.mp4 -vf format=yuv444p,scale=out_color_matrix=bt709 -f yuv4mpegpipe - | quillbox encode --matrix bt709 -o clip.gif -
  quillbox encode --raw 1280x720 --preset github capture.rgba)");

constexpr const char* recordExamples = QT_TRANSLATE_NOOP("Help", R"(Examples:
  quillbox record --region 0,0,800x600 --duration 10
  quillbox record --select --copy --duration 5
  quillbox record --region 100,50,640x480 -o demo.gif     (Ctrl-C stops and saves))");

void addOutputOptions(CLI::App& command, Arguments& arguments, const std::string& defaultOutput)
{
    command
        .add_option("--preset", arguments.preset,
            translate("Help", "Where the GIF is meant for: its limits on size, width and colours"))
        ->type_name("slack|github|docs")
        ->capture_default_str();
    command
        .add_option("-o,--output", arguments.output,
            withArguments(translate("Help", "The GIF to write, - for standard output (default: %1)"), {defaultOutput}))
        ->type_name("OUT");
    command.add_flag("--json", arguments.json, translate("Help", "Describe the result as a JSON object"));
    command.add_flag("--force", arguments.force, translate("Help", "Replace OUT if it exists"));
    command.add_flag(
        "-q,--quiet", arguments.quiet, translate("Help", "Print neither progress nor the result, unless as JSON"));
}

/// The options of which the precise encoder knows alone.
constexpr std::array preciseOptions{"--max-size", "--max-width", "--max-fps", "--colors"};

void addPreciseOptions(CLI::App& command, Arguments& arguments)
{
    command.add_flag("--precise", arguments.precise,
        translate("Help", "Show every change, as exactly as the preset's size and width allow"));
    command
        .add_option(
            "--max-size", arguments.maxSize, translate("Help", "With --precise: the size instead of the preset's"))
        ->type_name("BYTES[K|M]");
    command
        .add_option("--max-width", arguments.maxWidth,
            command.get_name() == "encode" ? translate(
                "Help", "Shrink wider frames to so many pixels; with --precise, instead of the preset's width")
                                           : translate("Help", "With --precise: the width instead of the preset's"))
        ->type_name("PIXELS");
    command
        .add_option("--max-fps", arguments.maxFPS,
            translate("Help", "With --precise: the most pictures a second (default: 30)"))
        ->type_name("N");
    command
        .add_option("--colors", arguments.colors,
            translate("Help", "With --precise: the most colours of a picture (default: 256)"))
        ->type_name("N");
}

/// @param text  Of the context "Usage"; `argument` takes the place of %1.
UsageError complaint(const char* text, const std::string& argument = {})
{
    return UsageError(withArguments(translate("Usage", text), {argument}));
}

/// A number from `least` to `most`. @param text  The complaint about any other; %1 and %2 are the limits.
std::int64_t numberIn(const std::string& argument, std::int64_t least, std::int64_t most, const char* text)
{
    const auto value = ArgumentText::number(argument);
    if (!value || *value < least || *value > most) {
        throw UsageError(withArguments(translate("Usage", text), {std::to_string(least), std::to_string(most)}));
    }
    return *value;
}

/// @throws UsageError  `text`, with the limits in the places of %1 and %2, unless `number` lies within.
std::int64_t numberWithin(std::int64_t number, std::int64_t least, std::int64_t most, const char* text)
{
    if (number < least || number > most)
        throw UsageError(withArguments(translate("Usage", text), {std::to_string(least), std::to_string(most)}));
    return number;
}

std::optional<PreciseOptimizer::Config> preciseLimits(
    const CLI::App& command, const Arguments& arguments, ExportPreset preset)
{
    if (!arguments.precise) {
        for (const char* const option : preciseOptions)
            if (command.count(option) > 0
                && !(command.get_name() == "encode" && std::string_view(option) == "--max-width"))
                throw complaint(QT_TRANSLATE_NOOP("Usage", "%1 belongs to --precise; add that"), option);
        return std::nullopt;
    }
    auto config = PreciseOptimizer::Config::of(preset);
    if (command.count("--max-size") > 0) {
        const auto bytes = ArgumentText::byteCount(arguments.maxSize);
        if (!bytes)
            throw complaint(QT_TRANSLATE_NOOP("Usage", "--max-size: \"%1\" is not a size; write it like 750K or 1.5M"),
                arguments.maxSize);
        config.targetBytes = *bytes;
    }
    if (command.count("--max-width") > 0)
        config.maxWidth = numberIn(arguments.maxWidth, 1, GIFEncoder::maximumFieldValue,
            QT_TRANSLATE_NOOP("Usage", "--max-width: use a number of pixels from %1 to %2"));
    if (command.count("--max-fps") > 0)
        config.maxFPS = numberWithin(arguments.maxFPS, 1, PreciseOptimizer::Config::highestMaxFPS,
            QT_TRANSLATE_NOOP("Usage", "--max-fps: use a number of pictures a second from %1 to %2"));
    if (command.count("--colors") > 0)
        config.maxColors = numberWithin(
            arguments.colors, 2, 256, QT_TRANSLATE_NOOP("Usage", "--colors: use a number of colours from %1 to %2"));
    return config;
}

/// Only GIFs are written, whatever a file is called: a name that promises something else is a mistake.
void refuseOtherFormats(const std::string& output)
{
    constexpr std::array<std::string_view, 18> others{"apng", "avi", "avif", "bmp", "heic", "jpeg", "jpg", "jxl", "mkv",
        "mov", "mp4", "pdf", "png", "svg", "tif", "tiff", "webm", "webp"};
    std::string extension = std::filesystem::path(output).extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
        [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    if (!extension.empty() && std::find(others.begin(), others.end(), extension.substr(1)) != others.end())
        throw complaint(QT_TRANSLATE_NOOP("Usage", "-o: \"%1\" is no name for a GIF; let it end in .gif"), output);
}

ExportPreset presetNamed(const std::string& name)
{
    const auto preset = ExportPreset::fromRawValue(name);
    if (!preset)
        throw complaint(
            QT_TRANSLATE_NOOP("Usage", "--preset: there is no preset \"%1\"; use slack, github or docs"), name);
    return *preset;
}

OutputOptions outputOptions(const CLI::App& command, const Arguments& arguments)
{
    OutputOptions options;
    options.preset = presetNamed(arguments.preset);
    if (command.count("--output") > 0) {
        if (arguments.output.empty())
            throw complaint(QT_TRANSLATE_NOOP("Usage", "-o: the name is empty; name a file, or - for standard output"));
        refuseOtherFormats(arguments.output);
        options.output = arguments.output;
    }
    options.json = arguments.json;
    options.force = arguments.force;
    options.precise = preciseLimits(command, arguments, options.preset);
    options.quiet = arguments.quiet;
    return options;
}

/// What is taken of each frame.
void setShape(FrameShape& shape, const CLI::App& command, const Arguments& arguments)
{
    if (command.count("--crop") > 0) {
        const auto region = ArgumentText::region(arguments.crop);
        if (!region || region->x < 0 || region->y < 0)
            throw complaint(QT_TRANSLATE_NOOP(
                                "Usage", "--crop: \"%1\" is not a part; write it like 10,20,640x480 (left, top, size)"),
                arguments.crop);
        shape.crop = {.left = region->x, .top = region->y, .size = {region->width, region->height}};
    }
    if (command.count("--max-width") > 0 && !arguments.precise) {
        shape.maxWidth = numberIn(arguments.maxWidth, 1, GIFEncoder::maximumFieldValue,
            QT_TRANSLATE_NOOP("Usage", "--max-width: use a number of pixels from %1 to %2"));
    }
}

/// How the inputs are to be understood.
void setSource(EncodeOptions& options, const CLI::App& command, const Arguments& arguments)
{
    if (command.count("--matrix") > 0) {
        if (arguments.matrix == "bt601")
            options.colors.matrix = YUVMatrix::bt601;
        else if (arguments.matrix == "bt709")
            options.colors.matrix = YUVMatrix::bt709;
        else if (arguments.matrix == "bt2020")
            options.colors.matrix = YUVMatrix::bt2020;
        else
            throw complaint(QT_TRANSLATE_NOOP("Usage", "--matrix: there is no \"%1\"; use bt601, bt709 or bt2020"),
                arguments.matrix);
    }
    if (command.count("--background") > 0) {
        const auto color = ArgumentText::color(arguments.background);
        if (!color)
            throw complaint(QT_TRANSLATE_NOOP(
                                "Usage", "--background: \"%1\" is not a colour; write it like #FFFFFF, white or black"),
                arguments.background);
        options.colors.background = *color;
        options.rawBackground = *color;
    }
    if (arguments.rawFormat == "bgra")
        options.rawFormat = RawFormat::bgra;
    else if (arguments.rawFormat == "rgb")
        options.rawFormat = RawFormat::rgb;
    else if (arguments.rawFormat == "bgr")
        options.rawFormat = RawFormat::bgr;
    else if (arguments.rawFormat != "rgba")
        throw complaint(QT_TRANSLATE_NOOP("Usage", "--raw-format: there is no \"%1\"; use rgba, bgra, rgb or bgr"),
            arguments.rawFormat);
    options.strict = arguments.strict;
    options.keepGoing = arguments.keepGoing;
}

EncodeOptions encodeOptions(const CLI::App& command, const Arguments& arguments)
{
    EncodeOptions options;
    options.out = outputOptions(command, arguments);
    options.inputs = arguments.inputs;
    if (command.count("--source-fps") > 0) {
        options.rate = ArgumentText::rate(arguments.sourceFPS);
        if (!options.rate)
            throw complaint(QT_TRANSLATE_NOOP("Usage",
                                "--source-fps: \"%1\" is not a number of frames per second; write it like 12, 29.97 or "
                                "30000/1001, 1000 at most"),
                arguments.sourceFPS);
    }
    if (command.count("--delay") > 0) {
        if (options.rate)
            throw complaint(QT_TRANSLATE_NOOP("Usage", "--delay and --source-fps say the same; use one of them"));
        options.rate = ArgumentText::delay(arguments.delay);
        if (!options.rate)
            throw complaint(
                QT_TRANSLATE_NOOP("Usage", "--delay: \"%1\" is not a number of seconds from 0.001 to 655.35"),
                arguments.delay);
    }
    if (arguments.dither == "always")
        options.dithering = true;
    else if (arguments.dither == "never")
        options.dithering = false;
    else if (arguments.dither != "auto")
        throw complaint(
            QT_TRANSLATE_NOOP("Usage", "--dither: there is no \"%1\"; use auto, always or never"), arguments.dither);
    if (command.count("--raw") > 0) {
        options.raw = ArgumentText::size(arguments.raw);
        if (!options.raw)
            throw complaint(
                QT_TRANSLATE_NOOP("Usage", "--raw: \"%1\" is not a size; write it like 1280x720"), arguments.raw);
        const auto fits = [](std::int64_t side) {
            return side >= 1 && side <= GIFEncoder::maximumFieldValue;
        };
        if (!fits(options.raw->width) || !fits(options.raw->height))
            throw complaint(QT_TRANSLATE_NOOP("Usage", "--raw: \"%1\" can't be; each side must be 1 to 65535 pixels"),
                arguments.raw);
    }
    setSource(options, command, arguments);
    setShape(options.shape, command, arguments);
    constexpr std::int64_t maxThreads = 256;
    constexpr std::int64_t maxPlays = 65536;
    if (command.count("--threads") > 0) {
        options.threads = static_cast<int>(numberIn(
            arguments.threads, 1, maxThreads, QT_TRANSLATE_NOOP("Usage", "--threads: use a number from %1 to %2")));
    }
    if (command.count("--loop") > 0) {
        options.plays
            = numberIn(arguments.loop, 0, maxPlays, QT_TRANSLATE_NOOP("Usage", "--loop: use a number from %1 to %2"));
    }
    return options;
}

RecordOptions recordOptions(const CLI::App& command, const Arguments& arguments)
{
    RecordOptions options;
    options.out = outputOptions(command, arguments);
    if (arguments.select == (command.count("--region") > 0))
        throw complaint(
            QT_TRANSLATE_NOOP("Usage", "name the region with --region X,Y,WxH, or drag it out with --select"));
    if (!arguments.select) {
        options.region = ArgumentText::region(arguments.region);
        if (!options.region)
            throw complaint(QT_TRANSLATE_NOOP("Usage",
                                "--region: \"%1\" is not a region; write it like 100,50,640x480 (left, top, size)"),
                arguments.region);
    }
    options.copy = arguments.copy;
    if (options.copy && options.out.output == standardStreamName)
        throw complaint(QT_TRANSLATE_NOOP("Usage", "--copy: the clipboard needs a file; leave out -o - or --copy"));
    if (command.count("--duration") > 0) {
        options.durationSeconds = ArgumentText::duration(arguments.duration);
        if (!options.durationSeconds)
            throw complaint(
                QT_TRANSLATE_NOOP("Usage", "--duration: \"%1\" is not a number of seconds above 0, at most 86400"),
                arguments.duration);
    }
    return options;
}

RecoverOptions recoverOptions(const CLI::App& command, const Arguments& arguments)
{
    if (arguments.list && arguments.discard)
        throw complaint(QT_TRANSLATE_NOOP("Usage", "--list and --discard can't be had at once; use one of them"));
    RecoverOptions options;
    options.out = outputOptions(command, arguments);
    if (arguments.list)
        options.action = RecoverOptions::Action::List;
    else if (arguments.discard)
        options.action = RecoverOptions::Action::Discard;
    return options;
}

/// A command that asks the running application for something.
struct Control {
    const char* name;
    const char* description;
    ControlOptions::Action action;
};

constexpr std::array controls{
    Control{"begin", QT_TRANSLATE_NOOP("Help", "Let the user drag out a region and record it"),
        ControlOptions::Action::Begin},
    Control{"stop", QT_TRANSLATE_NOOP("Help", "Stop recording, save and copy the clip, and print where it is"),
        ControlOptions::Action::Stop},
    Control{"toggle", QT_TRANSLATE_NOOP("Help", "Stop a recording, or begin one"), ControlOptions::Action::Toggle},
    Control{"again", QT_TRANSLATE_NOOP("Help", "Make another clip of what was recorded last, save and copy it"),
        ControlOptions::Action::Again},
    Control{"show", QT_TRANSLATE_NOOP("Help", "Open the panel"), ControlOptions::Action::Show},
    Control{"status", QT_TRANSLATE_NOOP("Help", "Print what the application is doing"), ControlOptions::Action::Status},
    Control{"quit", QT_TRANSLATE_NOOP("Help", "End the application"), ControlOptions::Action::Quit},
};

bool answersAsJSON(ControlOptions::Action action)
{
    return action != ControlOptions::Action::Show && action != ControlOptions::Action::Quit;
}

std::string example(const std::string& arguments)
{
    return withArguments(translate("Help", "Example:\n  quillbox %1"), {arguments});
}

/// The words that the parser itself puts around our texts.
void translateFrame(CLI::App& app)
{
    const auto words = std::make_shared<HelpFormatter>();
    constexpr std::size_t widestNames = 36; // with two blanks behind them
    words->column_width(widestNames);
    words->label("Usage", translate("Help", "Usage"));
    words->label("OPTIONS", translate("Help", "OPTIONS"));
    words->label("SUBCOMMAND", translate("Help", "SUBCOMMAND"));
    words->label("Positionals", translate("Help", "Positionals"));
    words->label("Options", translate("Help", "Options"));
    words->label("REQUIRED", translate("Help", "REQUIRED"));
    app.formatter(words);
    app.group(translate("Help", "Subcommands")); // which the subcommands take over
    app.set_help_flag("-h,--help", translate("Help", "Print this help message and exit"));
}

void addControls(CLI::App& app, Arguments& arguments)
{
    for (const Control& control : controls) {
        auto* const command = app.add_subcommand(control.name,
            withArguments(
                translate("Help", "%1 (of the running application)"), {translate("Help", control.description)}));
        if (answersAsJSON(control.action))
            command->add_flag("--json", arguments.json, translate("Help", "Answer with a JSON object"));
        if (control.action == ControlOptions::Action::Begin || control.action == ControlOptions::Action::Again)
            command->add_flag("--precise", arguments.precise, translate("Help", "Keep every change in this clip"));
        if (control.action == ControlOptions::Action::Again)
            command
                ->add_option("--preset", arguments.preset,
                    translate("Help", "Where the GIF is meant for (default: as for the clip before)"))
                ->type_name("slack|github|docs");
        command->footer(example(control.action == ControlOptions::Action::Again ? "again --precise" : control.name));
    }
}

std::optional<ControlOptions> controlOptions(const CLI::App& app, const Arguments& arguments)
{
    for (const Control& control : controls) {
        if (!app.got_subcommand(control.name))
            continue;
        ControlOptions options{.action = control.action, .json = arguments.json, .precise = arguments.precise};
        const auto* const command = app.get_subcommand(control.name);
        if (control.action == ControlOptions::Action::Again && command->count("--preset") > 0)
            options.preset = presetNamed(arguments.preset);
        return options;
    }
    return std::nullopt;
}

/// Ends the process's work with a text on standard output.
CommandLine::Finished print(const std::string& text, int exitCode)
{
    const auto encoded = TerminalText::encoded(text, TerminalText::localeEncoding());
    (void)std::fwrite(encoded.data(), 1, encoded.size(), stdout); // checked by the flush
    if (std::fflush(stdout) != 0) {
        ErrorReport::print(translate("Help", "the text can't be written to standard output"));
        return {ExitCode::failure};
    }
    return {exitCode};
}

std::string helpOn(CLI::App& app, const std::string& command)
{
    if (command.empty())
        return app.get_formatter()->make_help(&app, app.get_name(), CLI::AppFormatMode::Normal);
    const auto found = app.get_subcommands([&](const CLI::App* known) { return known->get_name() == command; });
    if (found.empty())
        throw complaint(QT_TRANSLATE_NOOP("Usage", "help: there is no command \"%1\"; see quillbox --help"), command);
    return found.front()->get_formatter()->make_help(
        found.front(), app.get_name() + " " + command, CLI::AppFormatMode::Normal);
}

} // namespace

CommandLine::Request CommandLine::parse(int argc, const char* const* argv)
{
    Arguments arguments;
    CLI::App app(translate("Help", overview), "quillbox");
    translateFrame(app);
    app.require_subcommand(0, 1);
    app.set_version_flag("-V,--version", "quillbox " QUILLBOX_VERSION, translate("Help", "Print the version"));

    auto* const encode
        = app.add_subcommand("encode", translate("Help", "Turn images, YUV4MPEG2 or raw frames into a GIF"));
    encode
        ->add_option("INPUT", arguments.inputs,
            translate("Help",
                "Images, one frame each, a folder of them, or a pattern like f%03d.png; or one animated image; or one "
                "YUV4MPEG2 stream; - for standard input"))
        ->required()
        ->type_name("");
    addOutputOptions(*encode, arguments, translate("Help", "beside the first INPUT, with the extension gif"));
    addPreciseOptions(*encode, arguments);
    encode
        ->add_option("--source-fps", arguments.sourceFPS,
            translate("Help",
                "Frames per second of the input, like 12, 0.5 or 30000/1001 (default: its own; else 1 for several "
                "images, 30 for raw frames)"))
        ->type_name("N");
    encode
        ->add_option("--delay", arguments.delay,
            translate("Help", "Show each frame of the input for so many seconds; the other way to say --source-fps"))
        ->type_name("S");
    encode->add_option("--dither", arguments.dither, translate("Help", "Mix colours that the palette lacks"))
        ->type_name("auto|always|never")
        ->capture_default_str();
    encode->add_option("--raw", arguments.raw, translate("Help", "INPUT is raw frames of this size, without padding"))
        ->type_name("WxH");
    encode->add_option("--raw-format", arguments.rawFormat, translate("Help", "The bytes of a raw pixel"))
        ->type_name("rgba|bgra|rgb|bgr")
        ->capture_default_str();
    encode->add_option("--crop", arguments.crop, translate("Help", "Take this part of each frame: left, top and size"))
        ->type_name("X,Y,WxH");
    encode->add_option("--loop", arguments.loop, translate("Help", "Play the GIF so many times (default: 0, for ever)"))
        ->type_name("N");
    encode
        ->add_option(
            "--threads", arguments.threads, translate("Help", "Encode with so many threads (default: one a core)"))
        ->type_name("N");
    encode
        ->add_option("--matrix", arguments.matrix,
            translate("Help",
                "By which standard the YUV4MPEG2 stream has its colours (default: bt709 from 720 rows on, else bt601)"))
        ->type_name("bt601|bt709|bt2020");
    encode
        ->add_option("--background", arguments.background,
            translate("Help", "What shows through transparent pixels (default: white)"))
        ->type_name("COLOR");
    encode->add_flag("--strict", arguments.strict,
        translate("Help", "Refuse images of another size than the first instead of fitting them into it"));
    encode->add_flag("--keep-going", arguments.keepGoing,
        translate("Help", "Leave out images and frames that are damaged or cut off, and say how many"));
    encode->footer(translate("Help", encodeExamples));

    auto* const record = app.add_subcommand("record", translate("Help", "Record a region of the screen as a GIF"));
    record
        ->add_option("--region", arguments.region,
            translate("Help", "Left, top and size of the region, points of the main display"))
        ->type_name("X,Y,WxH");
    record->add_flag("--select", arguments.select, translate("Help", "Drag the region out on the screen"));
    record
        ->add_option(
            "--duration", arguments.duration, translate("Help", "Stop after so many seconds (default: Ctrl-C stops)"))
        ->type_name("S");
    addOutputOptions(*record, arguments, translate("Help", "a dated file in the folder Quillbox of your videos"));
    addPreciseOptions(*record, arguments);
    record->add_flag("--copy", arguments.copy, translate("Help", "Put the clip on the clipboard, too"));
    record->footer(translate("Help", recordExamples));

    addControls(app, arguments);
    auto* const history = app.add_subcommand("history", translate("Help", "List the clips made lately, newest first"));
    history->add_flag("--json", arguments.json, translate("Help", "Print them as a JSON array"));
    history->footer(example("history --json"));
    auto* const recover
        = app.add_subcommand("recover", translate("Help", "Make clips of recordings that the program's end cut off"));
    recover->add_flag(
        "--list", arguments.list, translate("Help", "Only list them: when each began, and how long it is"));
    recover->add_flag("--discard", arguments.discard, translate("Help", "Remove them instead"));
    addOutputOptions(*recover, arguments, translate("Help", "a dated file in the folder Quillbox of your videos"));
    addPreciseOptions(*recover, arguments);
    recover->footer(example("recover --list"));
    auto* const doctor = app.add_subcommand(
        "doctor", translate("Help", "Tell what this desktop has to record, copy and so on, and what is missing"));
    doctor->add_flag("--json", arguments.json, translate("Help", "Print it as a JSON object"));
    doctor->footer(translate("Help", "The exit status is 0 where the screen can be recorded, else 1.") + "\n\n"
        + example("doctor"));

    auto* const help = app.add_subcommand("help", translate("Help", "Print the help of a command"));
    help->add_option("COMMAND", arguments.helpTopic, translate("Help", "The command; none for all of them"))
        ->type_name("");
    help->footer(example(std::string("help ") + "encode"));

    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& request) { // help or version
        std::ostringstream text;
        const int exitCode = app.exit(request, text, text);
        return print(text.str(), exitCode);
    } catch (const CLI::ParseError& error) {
        std::string hint = "quillbox --help";
        for (const auto* const command : app.get_subcommands())
            hint = "quillbox " + command->get_name() + " --help";
        throw UsageError(
            withArguments(translate("Usage", "%1; see %2"), {ParserMessages::translated(error.what()), hint}));
    }
    if (help->parsed())
        return print(helpOn(app, arguments.helpTopic), ExitCode::success);
    if (encode->parsed())
        return encodeOptions(*encode, arguments);
    if (record->parsed())
        return recordOptions(*record, arguments);
    if (history->parsed())
        return HistoryOptions{arguments.json};
    if (recover->parsed())
        return recoverOptions(*recover, arguments);
    if (doctor->parsed())
        return DoctorOptions{arguments.json};
    if (const auto control = controlOptions(app, arguments))
        return *control;
    return DesktopOptions{};
}

} // namespace quillbox
