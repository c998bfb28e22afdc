#pragma once

#include "Capture/PipeWire/PixelFormat.h"

#include <spa/param/video/raw.h>
#include <spa/pod/pod.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace quillbox {

/// The parameters that we put before a PipeWire stream. Each function writes into `memory`, which outlives the result.
namespace StreamOffer {

using Memory = std::array<std::byte, 2048>;

/// Every pixel order that we can read, those of eight bits a channel first, at any size and at most 30 pictures a
/// second. No modifier is offered, so that no
/// DMA-BUF is chosen.
[[nodiscard]] const spa_pod* formats(Memory& memory);

/// Memory that can be mapped, enough buffers that none is waited for.
[[nodiscard]] const spa_pod* buffers(Memory& memory);

/// The metadata that we read: header, crop, transform and damage, in this order.
[[nodiscard]] std::vector<const spa_pod*> metadata(Memory& memory);

/// Our name for a format; none if it was not offered.
[[nodiscard]] std::optional<PixelFormat> orderOf(spa_video_format format);

/// How many rectangles of damage a picture may carry.
constexpr std::uint32_t maxDamage = 16;

} // namespace StreamOffer
} // namespace quillbox
