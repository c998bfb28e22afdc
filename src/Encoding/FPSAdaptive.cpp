#include "Encoding/FPSAdaptive.h"

#include "Encoding/FrameDeduplicator.h"

#include <cmath>
#include <numeric>

namespace quillbox::FPSAdaptive {

double averageActivity(std::span<const RGBAFrame> frames, Parallelism parallelism)
{
    if (frames.size() < 2)
        return 0.0;
    std::vector<double> fractions(frames.size() - 1);
    parallelFor(parallelism, std::ssize(fractions), [&](std::int64_t item, int) {
        const auto i = static_cast<std::size_t>(item);
        fractions[i]
            = FrameDeduplicator::fractionChanged(frames[i], frames[i + 1], FrameDeduplicator::defaultPerPixelTolerance);
    });
    return std::accumulate(fractions.begin(), fractions.end(), 0.0) / static_cast<double>(fractions.size());
}

std::vector<RGBAFrame> resample(std::span<const RGBAFrame> frames, std::int64_t sourceFPS, std::int64_t targetFPS)
{
    if (sourceFPS < 1 || targetFPS < 1 || sourceFPS <= targetFPS || frames.size() < 2)
        return {frames.begin(), frames.end()};
    const double step = static_cast<double>(sourceFPS) / static_cast<double>(targetFPS);
    std::vector<RGBAFrame> kept;
    // Summed rather than multiplied, frame by frame: the rounding of the sum decides which frame is taken.
    for (double position = 0.0; position < static_cast<double>(frames.size()); position += step)
        kept.push_back(frames[static_cast<std::size_t>(std::floor(position))]);
    return kept;
}

} // namespace quillbox::FPSAdaptive
