#include "Encoding/FPSAdaptive.h"
#include "Encoding/FrameDeduplicator.h"
#include "Encoding/FrameReducer.h"
#include "Encoding/FrameResampler.h"
#include "StageInputs.h"

#include <algorithm>

using namespace quillbox;

namespace {

void checkMerging(const fuzz::ProcessingInput& input)
{
    const auto kept = FrameDeduplicator::deduplicate(input.frames, input.delayCentiseconds, input.threshold);
    precondition(!kept.empty() && kept.front().frame.sharesPixels(input.frames.front()), "the first frame is kept");
    precondition(kept.size() <= input.frames.size(), "no frame is invented");
    std::int64_t sum = 0;
    for (const FrameDeduplicator::Timed& timed : kept)
        sum += timed.delayCentiseconds;
    constexpr std::int64_t longest = 65535;
    const std::int64_t total = input.delayCentiseconds * std::ssize(input.frames);
    precondition(sum == total || total > longest, "merged frames last as long as they did");
}

/// Frames that are dropped at once give what all of them at hand give.
void checkReducer(const fuzz::ProcessingInput& input)
{
    const auto preset = ExportPreset::allCases.at(static_cast<std::size_t>(input.tolerance & 1));
    const std::int64_t fps = std::max<std::int64_t>(input.sourceFPS, 1);
    FrameReducer every = FrameReducer::forAnyPreset(fps);
    FrameReducer sparing = FrameReducer::sparing(fps, preset);
    for (const RGBAFrame& frame : input.frames) {
        every.append(frame);
        sparing.append(frame);
    }
    const auto expected = every.selection(preset);
    const auto selection = sparing.selection(preset);
    precondition(selection.fps == expected.fps && selection.frames == expected.frames, "little memory changes nothing");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const fuzz::ProcessingInput input(fuzz::Input(data, size));
    const auto& frames = input.frames;
    for (std::size_t i = 1; i < frames.size(); ++i) {
        const double changed = FrameDeduplicator::fractionChanged(frames[i - 1], frames[i], input.tolerance);
        precondition(changed >= 0 && changed <= 1, "a share is from 0 to 1");
        precondition(changed == FrameDeduplicator::fractionChanged(frames[i], frames[i - 1], input.tolerance),
            "a change is as large as its undoing");
    }
    checkMerging(input);
    checkReducer(input);

    const double activity = FPSAdaptive::averageActivity(frames);
    precondition(activity >= 0 && activity <= 1, "an average share is from 0 to 1");
    const auto slower = FPSAdaptive::resample(frames, input.sourceFPS, input.targetFPS);
    precondition(!slower.empty() && slower.front().sharesPixels(frames.front()), "a slower clip begins alike");

    const auto capped = FrameResampler::cappedToWidth(frames, input.maxWidth, {1});
    precondition(capped.size() == frames.size(), "every frame is shrunk");
    const PixelSize fitted
        = FrameResampler::fittedSize(frames.front().width(), frames.front().height(), input.maxWidth);
    precondition(
        capped.front().width() == fitted.width && capped.front().height() == fitted.height, "as small as it was to be");
    return 0;
}
