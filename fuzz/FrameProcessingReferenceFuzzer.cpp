#include "Encoding/FPSAdaptive.h"
#include "Encoding/FrameDeduplicator.h"
#include "Encoding/FrameResampler.h"
#include "reference/FPSAdaptive.h"
#include "reference/FrameDeduplicator.h"
#include "reference/FrameResampler.h"
#include "StageInputs.h"

using namespace quillbox;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const fuzz::ProcessingInput input(fuzz::Input(data, size));
    const auto& frames = input.frames;
    for (std::size_t i = 1; i < frames.size(); ++i) {
        precondition(FrameDeduplicator::fractionChanged(frames[i - 1], frames[i], input.tolerance)
                == reference::fractionChanged(frames[i - 1], frames[i], input.tolerance),
            "both see the same change");
    }
    precondition(FrameDeduplicator::deduplicate(frames, input.delayCentiseconds, input.threshold)
            == reference::deduplicate(frames, input.delayCentiseconds, input.threshold),
        "both merge the same frames");
    precondition(
        FPSAdaptive::averageActivity(frames) == reference::averageActivity(frames), "both measure the same activity");
    precondition(FPSAdaptive::resample(frames, input.sourceFPS, input.targetFPS)
            == reference::resample(frames, input.sourceFPS, input.targetFPS),
        "both keep the same frames");
    precondition(
        FrameResampler::cappedToWidth(frames, input.maxWidth, {1}) == reference::cappedToWidth(frames, input.maxWidth),
        "both shrink to the same pictures");
    return 0;
}
