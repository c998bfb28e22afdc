#include "App/CommandLine/Arguments/OutputArguments.h"

#include "App/CommandLine/Arguments/ArgumentText.h"
#include "Encoding/GIFEncoder.h"
#include "Translation/Translate.h"

#include <QtGlobal>

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <string_view>

namespace quillbox {
namespace {

/// The options of which the precise encoder knows alone.
constexpr std::array preciseOptions{"--max-size", "--max-width", "--max-fps", "--colors"};

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

} // namespace

void OutputArguments::addOptions(CLI::App& command, Arguments& arguments, const std::string& defaultOutput)
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

void OutputArguments::addPreciseOptions(CLI::App& command, Arguments& arguments)
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

ExportPreset OutputArguments::presetNamed(const std::string& name)
{
    std::string lowerCase = name;
    std::transform(lowerCase.begin(), lowerCase.end(), lowerCase.begin(),
        [](char letter) { return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter; });
    const auto preset = ExportPreset::fromRawValue(lowerCase);
    if (!preset)
        throw complaint(
            QT_TRANSLATE_NOOP("Usage", "--preset: there is no preset \"%1\"; use slack, github or docs"), name);
    return *preset;
}

OutputOptions OutputArguments::options(const CLI::App& command, const Arguments& arguments)
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

} // namespace quillbox
