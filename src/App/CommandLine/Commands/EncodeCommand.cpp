#include "App/CommandLine/Commands/Command.h"

#include "App/CommandLine/ClipOutput.h"
#include "App/CommandLine/Environment.h"
#include "App/CommandLine/InputFiles.h"
#include "App/CommandLine/InputReader.h"
#include "App/CommandLine/LoopCount.h"
#include "App/CommandLine/OptimizerProgress.h"
#include "App/CommandLine/ResultReport.h"
#include "App/CommandLine/Terminal/ErrorReport.h"
#include "App/CommandLine/Terminal/ProgressLine.h"
#include "App/FrameSources/BackgroundFrames.h"
#include "App/FrameSources/ClipTimeline.h"
#include "App/FrameSources/FrameReadError.h"
#include "App/FrameSources/ReadingThreads.h"
#include "Capture/Spill/ByteSpill.h"
#include "Capture/Spill/FrameSpill.h"
#include "Encoding/FrameReducer.h"
#include "Encoding/GIFOptimizer.h"
#include "Encoding/Precise/DistinctFrames.h"
#include "Encoding/Precise/PreciseOptimizer.h"
#include "PostCapture/OutputFile.h"
#include "Translation/Translate.h"

#include <cerrno>
#include <cstdint>
#include <iterator>
#include <optional>
#include <span>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace quillbox {
namespace {

std::string outputName(const EncodeOptions& options)
{
    if (options.out.output)
        return *options.out.output;
    auto name = InputFiles::outputNameFor(options.inputs.front());
    if (name.empty())
        throw UsageError(translate("Usage", "this INPUT gives the GIF no name; add one, like -o clip.gif"));
    return name;
}

/// @throws FrameReadError   an input isn't there.
/// @throws OutputFileError  the output is one of the inputs, under whatever name.
void examineFiles(const std::vector<std::string>& inputs, const ClipOutput& output)
{
    struct stat out { };
    const bool replacesFile
        = !output.isStandardOutput() && ::stat(output.name().c_str(), &out) == 0 && S_ISREG(out.st_mode);
    for (const std::string& input : inputs) {
        struct stat in { };
        if (input != standardStreamName && InputFiles::patternIn(input))
            continue; // whatever fits it is an image, not a GIF that is made of images
        if ((input == standardStreamName ? ::fstat(STDIN_FILENO, &in) : ::stat(input.c_str(), &in)) != 0)
            throw FrameReadError(input == standardStreamName ? translate("Streams", "standard input") : input,
                FrameReadError::CannotOpen{errno});
        if (replacesFile && in.st_dev == out.st_dev && in.st_ino == out.st_ino)
            throw OutputFileError(output.name(), OutputFileError::Reason::IsInput);
    }
}

void save(const ResultReport::Clip& clip, const ClipOutput& output, const OutputOptions& options, ProgressLine& line)
{
    line.show(translate("ProgressLine", "saving"));
    output.save(clip.result.data);
    line.clear();
    if (options.json || !options.quiet)
        output.report(options.json ? ResultReport::jsonLine(clip) : ResultReport::humanLine(clip));
}

/// Reads all inputs. @return what was left out, as a sentence.
std::optional<std::string> read(const EncodeOptions& options, ClipTimeline& timeline)
{
    FrameShaper shaper(options.inputs.front(), options.shape, timeline);
    return InputReader::read(options, shaper);
}

void warn(const std::optional<std::string>& warning, ProgressLine& line)
{
    if (!warning)
        return;
    line.clear();
    ErrorReport::print(withArguments(translate("ErrorReport", "warning: %1"), {*warning}));
}

void setPlays(GIFOptimizer::Result& result, std::int64_t plays)
{
    LoopCount::setPlays(result.data, plays);
    result.byteCount = std::ssize(result.data);
}

void encodeByPreset(const EncodeOptions& options, const ClipOutput& output, ProgressLine& line)
{
    FrameSpill spill(FrameSpill::inputLimits(), FrameSpill::usualFolder());
    const auto threads = ReadingThreads::of(options.threads);
    const auto keep = [&spill](const RGBAFrame& picture) {
        spill.keep(picture);
    };
    BackgroundFrames<FrameReducer> intake(
        [&](std::int64_t fps) { return FrameReducer::sparing(fps, options.out.preset, keep, threads.measuring); },
        threads.intake);
    ClipTimeline timeline(options.rate, intake);
    warn(read(options, timeline), line);
    const FrameReducer& frames = intake.finished();
    const GIFOptimizer::Config config{
        .preset = options.out.preset, .sourceFPS = frames.sourceFPS(), .ditheringOverride = options.dithering};
    ByteSpill store(spill.limits().diskSpaceToLeave, FrameSpill::usualFolder());
    auto result = GIFOptimizer::optimize(frames, config,
        {.parallelism = {options.threads},
            .progress = progressOn(line, options.out.preset),
            .store = [&store](std::span<const std::uint8_t> bytes) {
                return store.store(bytes);
            }});
    setPlays(result, options.plays);
    const FrameRate rate = timeline.rate();
    const ResultReport::Clip clip{.result = result,
        .preset = options.out.preset,
        .output = output.name(),
        .isOfFrames = true,
        .pictures = timeline.distinctCount(),
        .isRateLowered = rate.frames > result.effectiveFPS * rate.seconds};
    save(clip, output, options.out, line);
}

/// @pre the options ask for it
void encodePrecisely(const EncodeOptions& options, const ClipOutput& output, ProgressLine& line)
{
    const PreciseOptimizer::Config& config = *options.out.precise;
    FrameSpill spill(FrameSpill::inputLimits(FrameSpill::usualMemory), FrameSpill::usualFolder());
    const auto keep = [&spill](const RGBAFrame& picture) {
        spill.keep(picture);
    };
    BackgroundFrames<DistinctFrames> intake(
        [&](std::int64_t fps) { return PreciseOptimizer::framesFor(config, fps, keep); },
        ReadingThreads::of(options.threads).intake);
    ClipTimeline timeline(options.rate, intake);
    warn(read(options, timeline), line);
    auto result = PreciseOptimizer::optimize(
        intake.finished(), config, {.parallelism = {options.threads}, .progress = progressOn(line, std::nullopt)});
    setPlays(result.clip, options.plays);
    const FrameRate rate = timeline.rate();
    const ResultReport::Clip clip{.result = result.clip,
        .preset = options.out.preset,
        .output = output.name(),
        .precise = ResultReport::Clip::Precise{result, config},
        .isOfFrames = true,
        .pictures = timeline.distinctCount(),
        .isRateLowered = rate.frames > config.maxFPS * rate.seconds};
    save(clip, output, options.out, line);
}

} // namespace

int Command::run(const EncodeOptions& options)
{
    const ClipOutput output(outputName(options), options.out.force);
    examineFiles(options.inputs, output);
    output.check();

    Environment::check();
    ProgressLine line(!options.out.quiet);
    line.show(translate("ProgressLine", "reading"));
    if (options.out.precise)
        encodePrecisely(options, output, line);
    else
        encodeByPreset(options, output, line);
    return ExitCode::success;
}

} // namespace quillbox
