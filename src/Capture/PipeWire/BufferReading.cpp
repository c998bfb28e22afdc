#include "Capture/PipeWire/BufferReading.h"

#include <spa/buffer/buffer.h>
#include <spa/buffer/meta.h>

#include <algorithm>
#include <span>

namespace quillbox {

namespace {

/// The metadata of a type, as far as there is any.
template <typename Meta> std::span<const Meta> metadataOf(const spa_buffer& buffer, spa_meta_type type)
{
    for (const spa_meta& each : std::span(buffer.metas, buffer.n_metas))
        if (each.type == type && each.data != nullptr)
            return {static_cast<const Meta*>(each.data), each.size / sizeof(Meta)};
    return {};
}

/// A rectangle of somebody else's numbers, cut to `within`.
PixelRect rectOf(const spa_region& region, const StreamFormat& within)
{
    const auto left = std::clamp<std::int64_t>(region.position.x, 0, within.width);
    const auto top = std::clamp<std::int64_t>(region.position.y, 0, within.height);
    const auto right = std::clamp<std::int64_t>(std::int64_t{region.position.x} + region.size.width, 0, within.width);
    const auto bottom
        = std::clamp<std::int64_t>(std::int64_t{region.position.y} + region.size.height, 0, within.height);
    return {static_cast<std::int32_t>(left), static_cast<std::int32_t>(top), static_cast<std::int32_t>(right - left),
        static_cast<std::int32_t>(bottom - top)};
}

/// Whether the metadata is there and says something: a source may have room for damage and never tell of any.
std::optional<std::vector<PixelRect>> damageOf(const spa_buffer& buffer, const StreamFormat& format)
{
    const auto regions = metadataOf<spa_meta_region>(buffer, SPA_META_VideoDamage);
    std::vector<PixelRect> damage;
    for (const spa_meta_region& each : regions) {
        if (each.region.size.width == 0 || each.region.size.height == 0)
            break; // marks the end
        damage.push_back(rectOf(each.region, format));
    }
    if (damage.empty())
        return std::nullopt;
    return damage;
}

} // namespace

std::optional<ReadBuffer> readBuffer(const spa_buffer& buffer, const StreamFormat& format)
{
    if (buffer.n_datas == 0)
        return std::nullopt;
    const spa_data& data = buffer.datas[0];
    if (data.data == nullptr || data.chunk == nullptr)
        return std::nullopt;
    const spa_chunk chunk = *data.chunk; // the other side could change it under our hands
    const bool isCorrupted = (chunk.flags & std::int32_t{SPA_CHUNK_FLAG_CORRUPTED}) != 0;
    if (chunk.size == 0 || isCorrupted || chunk.offset > data.maxsize)
        return std::nullopt;

    ReadBuffer result;
    const auto header = metadataOf<spa_meta_header>(buffer, SPA_META_Header);
    if (!header.empty()) {
        if ((header.front().flags & SPA_META_HEADER_FLAG_CORRUPTED) != 0)
            return std::nullopt;
        result.sequence = header.front().seq;
    }
    StreamBuffer& picture = result.picture;
    picture.bytes = {static_cast<const std::uint8_t*>(data.data) + chunk.offset, data.maxsize - chunk.offset};
    picture.order = format.order;
    picture.width = format.width;
    picture.height = format.height;
    picture.stride = chunk.stride != 0 ? chunk.stride : format.width * bytesPerPixel(format.order);
    picture.crop = {0, 0, format.width, format.height};
    const auto crop = metadataOf<spa_meta_region>(buffer, SPA_META_VideoCrop);
    if (!crop.empty() && crop.front().region.size.width != 0 && crop.front().region.size.height != 0)
        picture.crop = rectOf(crop.front().region, format);
    const auto transform = metadataOf<spa_meta_videotransform>(buffer, SPA_META_VideoTransform);
    constexpr auto transforms = std::uint32_t{SPA_META_TRANSFORMATION_Flipped270} + 1;
    if (!transform.empty() && transform.front().transform < transforms)
        picture.transform = static_cast<BufferTransform>(transform.front().transform);
    if (!picture.isWhole())
        return std::nullopt;
    result.damage = damageOf(buffer, format);
    return result;
}

} // namespace quillbox
