#pragma once

#include "Encoding/Bytes.h"

#include <cstdint>
#include <span>

namespace quillbox::reference {

/// GIF's LZW with a dictionary of whole index sequences, one string each: what `LZW::encode` must equal.
[[nodiscard]] Bytes lzwEncode(std::span<const std::uint8_t> indices, int minCodeSize);

} // namespace quillbox::reference
