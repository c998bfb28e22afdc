#include "Capture/Wayland/CastOutput.h"

namespace quillbox {

namespace {

bool hasMode(const OutputFacts& output, FrameResampler::Size mode)
{
    return output.mode == mode || output.mode == FrameResampler::Size{mode.height, mode.width};
}

} // namespace

std::optional<FrameResampler::Size> pointsOfCast(const CastFacts& cast, std::span<const OutputFacts> outputs)
{
    // From what fits worst to what fits best; the first of those that fit alike is taken.
    enum class Fit { None, Only, Position, Mode, ModeAndPosition, PointsAndPosition };
    Fit best = Fit::None;
    std::optional<FrameResampler::Size> points = cast.size;
    for (const OutputFacts& output : outputs) {
        if (!output.points)
            continue;
        const bool isThere = cast.position && output.position == cast.position;
        Fit fit = outputs.size() == 1 ? Fit::Only : Fit::None;
        if (isThere)
            fit = Fit::Position;
        if (cast.size && hasMode(output, *cast.size))
            fit = isThere ? Fit::ModeAndPosition : Fit::Mode;
        if (isThere && output.points == cast.size)
            fit = Fit::PointsAndPosition;
        if (fit > best) {
            best = fit;
            points = output.points;
        }
    }
    return points;
}

} // namespace quillbox
