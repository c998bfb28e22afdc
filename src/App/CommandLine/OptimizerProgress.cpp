#include "App/CommandLine/OptimizerProgress.h"

#include "App/CommandLine/ProgressLine.h"
#include "Translation/Translate.h"

namespace quillbox {

std::string progressText(const GIFOptimizer::Progress& progress)
{
    const auto percent = progress.frameCount == 0 ? 0 : progress.framesDone * 100 / progress.frameCount;
    const auto colors = static_cast<int>(progress.colors); // at most 256
    return withArguments(translate("ProgressLine", "attempt %1: %n colour(s), %2 %", nullptr, colors),
        {std::to_string(progress.attempt), std::to_string(percent)});
}

std::function<void(const GIFOptimizer::Progress&)> progressOn(ProgressLine& line)
{
    if (!line.isVisible())
        return {};
    return [&line](const GIFOptimizer::Progress& progress) {
        line.show(progressText(progress));
    };
}

} // namespace quillbox
