#include "reference/FPSAdaptive.h"

#include "reference/FrameDeduplicator.h"

#include <cmath>

namespace quillbox::reference {

double averageActivity(std::span<const RGBAFrame> frames)
{
    if (frames.size() < 2)
        return 0.0;
    double sum = 0.0;
    for (std::size_t i = 0; i + 1 < frames.size(); ++i)
        sum += fractionChanged(frames[i], frames[i + 1], 12);
    return sum / static_cast<double>(frames.size() - 1);
}

std::vector<RGBAFrame> resample(std::span<const RGBAFrame> frames, std::int64_t sourceFPS, std::int64_t targetFPS)
{
    if (sourceFPS < 1 || targetFPS < 1 || sourceFPS <= targetFPS || frames.size() < 2)
        return {frames.begin(), frames.end()};
    const double step = static_cast<double>(sourceFPS) / static_cast<double>(targetFPS);
    double accumulator = 0.0;
    std::int64_t nextIndex = 0;
    std::vector<RGBAFrame> taken;
    for (std::int64_t i = 0; i < std::ssize(frames); ++i) {
        if (i < nextIndex)
            continue;
        taken.push_back(frames[static_cast<std::size_t>(i)]);
        accumulator += step;
        nextIndex = static_cast<std::int64_t>(std::floor(accumulator));
    }
    return taken;
}

} // namespace quillbox::reference
