#include "App/CommandLine/Arguments/EncodeArguments.h"

#include "App/CommandLine/Arguments/ArgumentText.h"
#include "App/CommandLine/Arguments/OutputArguments.h"
#include "Encoding/GIFEncoder.h"
#include "Translation/Translate.h"

#include <QtGlobal>

namespace quillbox {
namespace {

constexpr const char* encodeExamples = QT_TRANSLATE_NOOP("Help", R"(Examples:
  quillbox encode -o steps.gif step1.png step2.png step3.png --source-fps 1
  quillbox encode -o steps.gif step%02d.png --delay 1.5
  ffmpeg -i clip.mp4 -vf format=yuv444p,scale=out_color_matrix=bt709 -f yuv4mpegpipe - | quillbox encode --matrix bt709 -o clip.gif -
  quillbox encode --raw 1280x720 --preset github capture.rgba)");

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

/// Each option has an effect, or is refused.
void refuseWithoutEffect(const CLI::App& command, const Arguments& arguments)
{
    const auto isGiven = [&command](const char* option) {
        return command.count(option) > 0;
    };
    if (arguments.precise && isGiven("--dither"))
        throw complaint(QT_TRANSLATE_NOOP("Usage", "--dither: --precise mixes no colours; leave out one of them"));
    if (isGiven("--raw-format") && !isGiven("--raw"))
        throw complaint(QT_TRANSLATE_NOOP("Usage", "%1 belongs to --raw; add that"), "--raw-format");
    if (isGiven("--raw") && isGiven("--matrix"))
        throw complaint(QT_TRANSLATE_NOOP("Usage", "--matrix: raw frames are red, green and blue; leave it out"));
    if (isGiven("--raw") && isGiven("--background") && arguments.rawFormat.size() == 3)
        throw complaint(QT_TRANSLATE_NOOP("Usage", "--background: %1 frames have no transparency; leave it out"),
            arguments.rawFormat);
}

} // namespace

CLI::App* EncodeArguments::addCommand(CLI::App& app, Arguments& arguments)
{
    auto* const encode
        = app.add_subcommand("encode", translate("Help", "Turn images, YUV4MPEG2 or raw frames into a GIF"));
    encode
        ->add_option("INPUT", arguments.inputs,
            translate("Help",
                "Images, one frame each, a folder of them, or a pattern like f%03d.png; or one animated image; or one "
                "YUV4MPEG2 stream; - for standard input"))
        ->required()
        ->type_name("");
    OutputArguments::addOptions(
        *encode, arguments, translate("Help", "beside the first INPUT, with the extension gif"));
    OutputArguments::addPreciseOptions(*encode, arguments);
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
    encode
        ->add_option(
            "--dither", arguments.dither, translate("Help", "Mix colours that the palette lacks; not with --precise"))
        ->type_name("auto|always|never")
        ->capture_default_str();
    encode->add_option("--raw", arguments.raw, translate("Help", "INPUT is raw frames of this size, without padding"))
        ->type_name("WxH");
    encode->add_option("--raw-format", arguments.rawFormat, translate("Help", "With --raw: the bytes of a pixel"))
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
            translate("Help",
                "What shows through transparent pixels (default: white; raw frames are opaque unless this is given)"))
        ->type_name("COLOR");
    encode->add_flag("--strict", arguments.strict,
        translate("Help", "Refuse images of another size than the first instead of fitting them into it"));
    encode->add_flag("--keep-going", arguments.keepGoing,
        translate("Help", "Leave out images and frames that are damaged or cut off, and say how many"));
    encode->footer(translate("Help", encodeExamples));
    return encode;
}

EncodeOptions EncodeArguments::options(const CLI::App& command, const Arguments& arguments)
{
    EncodeOptions options;
    options.out = OutputArguments::options(command, arguments);
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
    refuseWithoutEffect(command, arguments);
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

} // namespace quillbox
