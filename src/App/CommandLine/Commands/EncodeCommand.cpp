#include "App/CommandLine/Commands/Command.h"

#include "App/CommandLine/ClipOutput.h"
#include "App/CommandLine/InputReader.h"
#include "App/CommandLine/OptimizerProgress.h"
#include "App/CommandLine/ProgressLine.h"
#include "App/CommandLine/ResultReport.h"
#include "App/FrameSources/BackgroundDistinctFrames.h"
#include "App/FrameSources/BackgroundReducer.h"
#include "App/FrameSources/FrameReadError.h"
#include "Capture/Spill/FrameSpill.h"
#include "Encoding/GIFOptimizer.h"
#include "Encoding/Precise/PreciseOptimizer.h"
#include "PostCapture/OutputFile.h"
#include "Translation/Translate.h"

#include <cerrno>
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace quillbox {
namespace {

namespace fs = std::filesystem;

std::string outputName(const EncodeOptions& options)
{
    if (options.out.output)
        return *options.out.output;
    const auto& input = options.inputs.front();
    std::error_code error; // a file that can't be looked at is reported when it is opened
    if (input == standardStreamName || fs::is_other(input, error)) // a pipe or device has no folder to put a GIF in
        throw UsageError(translate("Usage", "this INPUT gives the GIF no name; add one, like -o clip.gif"));
    return fs::path(input).replace_extension("gif").string();
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
        if ((input == standardStreamName ? ::fstat(STDIN_FILENO, &in) : ::stat(input.c_str(), &in)) != 0)
            throw FrameReadError(input, FrameReadError::CannotOpen{errno});
        if (replacesFile && in.st_dev == out.st_dev && in.st_ino == out.st_ino)
            throw OutputFileError(output.name(), OutputFileError::Reason::IsInput);
    }
}

void save(const ResultReport::Clip& clip, const ClipOutput& output, bool json, ProgressLine& line)
{
    line.show(translate("ProgressLine", "saving"));
    output.save(clip.result.data);
    line.clear();
    output.report(json ? ResultReport::jsonLine(clip) : ResultReport::humanLine(clip));
}

void encodeByPreset(const EncodeOptions& options, const ClipOutput& output, ProgressLine& line)
{
    FrameSpill spill(FrameSpill::inputLimits(), FrameSpill::usualFolder());
    BackgroundReducer reducer(
        options.out.preset, options.sourceFPS, [&spill](const RGBAFrame& picture) { spill.keep(picture); });
    InputReader::read(options, reducer);
    const FrameReducer& frames = reducer.finished();
    const GIFOptimizer::Config config{
        .preset = options.out.preset, .sourceFPS = frames.sourceFPS(), .ditheringOverride = options.dithering};
    const auto result = GIFOptimizer::optimize(frames, config, {.progress = progressOn(line)});
    save({result, options.out.preset, output.name()}, output, options.out.json, line);
}

/// @pre the options ask for it
void encodePrecisely(const EncodeOptions& options, const ClipOutput& output, ProgressLine& line)
{
    const PreciseOptimizer::Config& config = *options.out.precise;
    FrameSpill spill(FrameSpill::inputLimits(FrameSpill::usualMemory), FrameSpill::usualFolder());
    BackgroundDistinctFrames distinct(
        config, options.sourceFPS, [&spill](const RGBAFrame& picture) { spill.keep(picture); });
    InputReader::read(options, distinct);
    const auto result = PreciseOptimizer::optimize(distinct.finished(), config, {.progress = progressOn(line)});
    save({result.clip, options.out.preset, output.name(), ResultReport::Clip::Precise{result, config}}, output,
        options.out.json, line);
}

} // namespace

int Command::run(const EncodeOptions& options)
{
    const ClipOutput output(outputName(options), options.out.force);
    examineFiles(options.inputs, output);
    output.check();

    ProgressLine line;
    line.show(translate("ProgressLine", "reading"));
    if (options.out.precise)
        encodePrecisely(options, output, line);
    else
        encodeByPreset(options, output, line);
    return ExitCode::success;
}

} // namespace quillbox
