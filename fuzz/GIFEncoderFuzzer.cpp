#include "Encoding/GIFEncoder.h"
#include "FuzzInput.h"
#include "reference/GIFEncoder.h"
#include "support/GifDecoding.h"

#include <algorithm>

using namespace quillbox;

namespace {

IndexedFrame frameFrom(fuzz::Input& input)
{
    IndexedFrame frame;
    frame.width = input.below(41);
    frame.height = input.below(41);
    frame.delayCentiseconds = input.number16() * 2 - 1000; // below 1 and above 65535 too
    frame.palette = input.palette(input.below(300));
    const std::int64_t colors = std::clamp<std::int64_t>(std::ssize(frame.palette), 1, 256);
    for (std::int64_t i = 0; i < frame.width * frame.height; ++i)
        frame.indices.push_back(static_cast<std::uint8_t>(input.below(colors)));
    return frame;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::Input input(data, size);
    const std::int64_t loopCount = input.number16();
    std::vector<IndexedFrame> frames;
    while (!input.isEmpty() && frames.size() < 4)
        frames.push_back(frameFrom(input));

    const Bytes file = GIFEncoder::encode(frames, {.loopCount = loopCount});
    precondition(file == reference::gifEncode(frames, loopCount), "both writers write the same file");
    const bool allHavePixels
        = std::all_of(frames.begin(), frames.end(), [](const IndexedFrame& frame) { return !frame.indices.empty(); });
    if (!frames.empty() && allHavePixels)
        precondition(support::differenceSeenByGiflib(file, frames, loopCount).empty(), "giflib reads what was written");
    return 0;
}
