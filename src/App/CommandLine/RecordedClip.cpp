#include "App/CommandLine/RecordedClip.h"

#include "App/CommandLine/ClipOutput.h"
#include "App/CommandLine/ResultReport.h"
#include "App/CommandLine/Terminal/ProgressLine.h"
#include "App/Workflow/ClipExport.h"
#include "Capture/FrameTimeline.h"
#include "Translation/Translate.h"

#include <QFile>

#include <utility>

namespace quillbox {

RecordedClip::Encoded RecordedClip::encode(const Recording& recording, const OutputOptions& options,
    const std::function<void(const GIFOptimizer::Progress&)>& progress)
{
    if (!options.precise)
        return {.result = ClipExport::encode(recording, options.preset, {.progress = progress}),
            .precise = {},
            .pictures = recording.distinctCount()};
    auto precise = ClipExport::encodePrecisely(recording, *options.precise, {.progress = progress});
    auto clip = std::exchange(precise.clip, {});
    const bool isRateLowered = options.precise->maxFPS < FrameTimeline::framesPerSecond;
    return {.result = std::move(clip),
        .precise = std::move(precise),
        .pictures = isRateLowered ? recording.distinctCount() : 0};
}

std::string RecordedClip::save(const Encoded& encoded, const Recording& recording, const OutputOptions& options,
    const QDateTime& date, ProgressLine& line)
{
    const auto& gif = encoded.result.data;
    line.show(translate("ProgressLine", "saving"));
    if (options.output)
        ClipOutput(*options.output, options.force).save(gif);
    const ClipOutput output(
        options.output ? *options.output : QFile::encodeName(ClipExport::save(gif, date)).toStdString(), options.force);
    recording.settle();
    line.clear();
    const auto shownRate = options.precise ? options.precise->maxFPS : encoded.result.effectiveFPS;
    ResultReport::Clip saved{.result = encoded.result,
        .preset = options.preset,
        .output = output.name(),
        .pictures = encoded.pictures,
        .isRateLowered = shownRate < FrameTimeline::framesPerSecond};
    if (encoded.precise)
        saved.precise.emplace(ResultReport::Clip::Precise{*encoded.precise, *options.precise});
    if (options.json || !options.quiet)
        output.report(options.json ? ResultReport::jsonLine(saved) : ResultReport::humanLine(saved));
    return output.name();
}

} // namespace quillbox
