#include "App/CommandLine/OptimizerProgress.h"

#include "App/CommandLine/Terminal/ProgressLine.h"
#include "Translation/Translate.h"

#include <algorithm>
#include <optional>

namespace quillbox {

std::string progressText(const GIFOptimizer::Progress& progress, std::optional<ExportPreset> preset)
{
    const auto percent = progress.frameCount == 0 ? 0 : progress.framesDone * 100 / progress.frameCount;
    const auto colors = static_cast<int>(progress.colors); // at most 256
    if (!preset) {
        return withArguments(translate("ProgressLine", "attempt %1: %n colour(s), %2 %", nullptr, colors),
            {std::to_string(progress.attempt), std::to_string(percent)});
    }
    const auto& ladder = preset->colorLadder();
    const auto step = std::ranges::find(ladder, progress.colors) - ladder.begin() + 1;
    return withArguments(translate("ProgressLine", "palette %1 of %2: %n colour(s), %3 %", nullptr, colors),
        {std::to_string(step), std::to_string(std::ssize(ladder)), std::to_string(percent)});
}

std::function<void(const GIFOptimizer::Progress&)> progressOn(ProgressLine& line, std::optional<ExportPreset> preset)
{
    if (!line.isVisible())
        return {};
    return [&line, preset](const GIFOptimizer::Progress& progress) {
        line.show(progressText(progress, preset));
    };
}

} // namespace quillbox
