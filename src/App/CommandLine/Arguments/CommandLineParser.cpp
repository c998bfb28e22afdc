#include "App/CommandLine/Arguments/Arguments.h"
#include "App/CommandLine/Arguments/ArgumentText.h"
#include "App/CommandLine/Arguments/EncodeArguments.h"
#include "App/CommandLine/Arguments/OutputArguments.h"
#include "App/CommandLine/Arguments/ParserMessages.h"
#include "App/CommandLine/CommandLine.h"
#include "App/CommandLine/Terminal/ErrorReport.h"
#include "App/CommandLine/Terminal/TerminalText.h"
#include "Translation/Translate.h"

#include <QtGlobal>

#include <array>
#include <cstdio>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
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

constexpr const char* recordExamples = QT_TRANSLATE_NOOP("Help", R"(Examples:
  quillbox record --region 0,0,800x600 --duration 3
  quillbox record --select --copy --duration 3
  quillbox record --region 100,50,640x480 -o demo.gif     (Ctrl-C stops and saves))");

RecordOptions recordOptions(const CLI::App& command, const Arguments& arguments)
{
    RecordOptions options;
    options.out = OutputArguments::options(command, arguments);
    if (arguments.select && command.count("--region") > 0)
        throw complaint(
            QT_TRANSLATE_NOOP("Usage", "--region and --select were both given; use one of them to say what to record"));
    if (!arguments.select && command.count("--region") == 0)
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
    options.out = OutputArguments::options(command, arguments);
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
            options.preset = OutputArguments::presetNamed(arguments.preset);
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

    const auto* const encode = EncodeArguments::addCommand(app, arguments);
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
    OutputArguments::addOptions(
        *record, arguments, translate("Help", "a dated file in the folder Quillbox of your videos"));
    OutputArguments::addPreciseOptions(*record, arguments);
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
    OutputArguments::addOptions(
        *recover, arguments, translate("Help", "a dated file in the folder Quillbox of your videos"));
    OutputArguments::addPreciseOptions(*recover, arguments);
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
        return EncodeArguments::options(*encode, arguments);
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
