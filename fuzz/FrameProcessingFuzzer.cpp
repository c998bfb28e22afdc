#include "Encoding/FPSAdaptive.h"
#include "Encoding/FrameDeduplicator.h"
#include "Encoding/FrameResampler.h"
#include "FuzzInput.h"
#include "reference/FPSAdaptive.h"
#include "reference/FrameDeduplicator.h"
#include "reference/FrameResampler.h"

using namespace quillbox;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::Input input(data, size);
    const std::int64_t sourceFPS = input.below(70) - 2;
    const std::int64_t targetFPS = input.below(70) - 2;
    const std::int64_t delay = input.number16() - 100;
    const double threshold = static_cast<double>(input.byte()) / 200.0 - 0.1;
    const std::int64_t tolerance = input.number16() * 4 - 10;
    const std::int64_t maxWidth = input.below(100) - 1;
    const std::vector<RGBAFrame> frames = input.recording(12, 90);

    for (std::size_t i = 1; i < frames.size(); ++i) {
        precondition(FrameDeduplicator::fractionChanged(frames[i - 1], frames[i], tolerance)
                == reference::fractionChanged(frames[i - 1], frames[i], tolerance),
            "both see the same change");
    }
    precondition(
        FrameDeduplicator::deduplicate(frames, delay, threshold) == reference::deduplicate(frames, delay, threshold),
        "both merge the same frames");
    precondition(
        FPSAdaptive::averageActivity(frames) == reference::averageActivity(frames), "both measure the same activity");
    precondition(
        FPSAdaptive::resample(frames, sourceFPS, targetFPS) == reference::resample(frames, sourceFPS, targetFPS),
        "both keep the same frames");
    precondition(FrameResampler::cappedToWidth(frames, maxWidth, {2}) == reference::cappedToWidth(frames, maxWidth),
        "both shrink to the same pictures");
    return 0;
}
