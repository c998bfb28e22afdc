#include "App/CommandLine/OptimizerProgress.h"

#include "App/CommandLine/ProgressLine.h"

namespace quillbox {

std::string progressText(const GIFOptimizer::Progress& progress)
{
    const auto percent = progress.frameCount == 0 ? 0 : progress.framesDone * 100 / progress.frameCount;
    return "attempt " + std::to_string(progress.attempt) + ": " + std::to_string(progress.colors) + " colours, "
        + std::to_string(percent) + " %";
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
