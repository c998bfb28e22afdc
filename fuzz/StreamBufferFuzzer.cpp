#include "Capture/CaptureError.h"
#include "Capture/PipeWire/BufferReading.h"
#include "Capture/PipeWire/StreamPicture.h"
#include "Encoding/Precondition.h"
#include "FuzzInput.h"

#include <spa/buffer/buffer.h>
#include <spa/buffer/meta.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

using namespace quillbox;

namespace {

std::uint32_t number32(fuzz::Input& input)
{
    const auto low = static_cast<std::uint32_t>(input.number16());
    return input.byte() < 200 ? low : low << 16U | static_cast<std::uint32_t>(input.number16());
}

/// As many bytes of metadata as the input says, of any content.
template <std::size_t count> spa_meta metadataOf(fuzz::Input& input, std::array<std::uint64_t, count>& memory)
{
    for (std::uint64_t& word : memory)
        word = number32(input) | std::uint64_t{number32(input)} << 32U;
    return {.type = static_cast<std::uint32_t>(input.below(SPA_META_VideoTransform + 2)),
        .size = static_cast<std::uint32_t>(input.below(static_cast<std::int64_t>(sizeof memory) + 1)),
        .data = memory.data()};
}

/// A buffer as another program may have filled it: its memory is all that can be relied on.
void show(fuzz::Input& input, StreamPicture& picture, const StreamFormat& format, RGBAFrame* before)
{
    const Bytes filled = input.rest(static_cast<std::size_t>(input.byte()));
    Bytes memory(static_cast<std::size_t>(input.below(4096)), 0); // of its exact size: one byte beyond it is found
    std::copy_n(filled.begin(), std::min(filled.size(), memory.size()), memory.begin());
    spa_chunk chunk{};
    chunk.offset = number32(input);
    chunk.size = number32(input);
    chunk.stride = static_cast<std::int32_t>(number32(input));
    chunk.flags = input.byte() < 250 ? SPA_CHUNK_FLAG_NONE : SPA_CHUNK_FLAG_CORRUPTED;
    spa_data data{};
    data.maxsize = static_cast<std::uint32_t>(memory.size());
    data.data = input.byte() < 250 ? memory.data() : nullptr;
    data.chunk = &chunk;
    std::array<std::uint64_t, 6> first{};
    std::array<std::uint64_t, 6> second{};
    std::array metadata{metadataOf(input, first), metadataOf(input, second)};
    spa_buffer buffer{};
    buffer.n_metas = static_cast<std::uint32_t>(input.below(3));
    buffer.metas = metadata.data();
    buffer.n_datas = 1;
    buffer.datas = &data;

    const auto read = readBuffer(buffer, format);
    if (!read)
        return;
    precondition(read->picture.isWhole(), "what was read lies in its memory");
    try {
        (void)picture.update(read->picture, read->damage);
    } catch (const CaptureError& error) {
        precondition(error.reason() == CaptureError::Reason::OutsideDisplay, "all else is read");
        return;
    }
    const RGBAFrame frame = picture.frame();
    precondition(frame.pixelCount() > 0, "a region has pixels");
    precondition(before->pixelCount() == 0 || (before->width() == frame.width() && before->height() == frame.height()),
        "all frames have one size");
    *before = frame;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::Input input(data, size);
    const CaptureRegion region{input.below(40), input.below(40), 1 + input.below(40), 1 + input.below(40)};
    const std::int64_t pointsWidth = input.below(60);
    StreamPicture picture(region, [&](PixelSize) -> std::optional<PixelSize> {
        if (pointsWidth == 0)
            return std::nullopt;
        return PixelSize{pointsWidth, pointsWidth};
    });
    RGBAFrame before(0, 0, Bytes());
    for (int number = 0; number < 4 && !input.isEmpty(); ++number) {
        const StreamFormat format{.order = static_cast<PixelFormat>(input.below(18)),
            .width = static_cast<std::int32_t>(1 + input.below(60)),
            .height = static_cast<std::int32_t>(1 + input.below(60))};
        show(input, picture, format, &before);
    }
    return 0;
}
