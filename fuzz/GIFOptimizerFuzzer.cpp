#include "Encoding/GIFEncoder.h"
#include "Encoding/GIFOptimizer.h"
#include "FuzzInput.h"
#include "reference/GIFOptimizer.h"
#include "support/GifDecoding.h"

#include <algorithm>
#include <array>

using namespace quillbox;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::Input input(data, size);
    constexpr std::array<std::optional<bool>, 3> ditherings{std::nullopt, true, false};
    const GIFOptimizer::Config config{.preset = ExportPreset::allCases.at(static_cast<std::size_t>(input.below(3))),
        .sourceFPS = input.below(70) - 2,
        .ditheringOverride = ditherings.at(static_cast<std::size_t>(input.below(3)))};
    const int threads = static_cast<int>(1 + input.below(4));
    const std::vector<RGBAFrame> frames = input.recording(10, input.byte() % 16 == 0 ? 1000 : 40);
    std::int64_t pixels = 0;
    for (const RGBAFrame& frame : frames)
        pixels += frame.pixelCount();
    if (pixels > 40'000)
        return 0; // the reference would take seconds

    const GIFOptimizer::Result result
        = GIFOptimizer::optimize(frames, config, {.parallelism = {threads}, .progress = {}});
    const reference::OptimizedClip expected = reference::optimize(frames, config);
    precondition(result == expected.result, "both optimizers give the same file and figures");
    const bool allHavePixels = std::all_of(expected.frames.begin(), expected.frames.end(),
        [](const IndexedFrame& frame) { return !frame.indices.empty(); });
    if (allHavePixels)
        precondition(support::differenceSeenByGiflib(result.data, expected.frames).empty(), "giflib reads the file");
    return 0;
}
