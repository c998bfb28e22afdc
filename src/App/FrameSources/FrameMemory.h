#pragma once

#include "Encoding/Pixels/PixelSize.h"

#include <cstdint>
#include <string>

namespace quillbox {

/// The bytes of one RGBA frame of `size`, once it is known that a GIF can hold it and that this machine's memory can.
/// @param input, frame  For the message; frames count from 1.
/// @throws FrameReadError  a side is outside 1…65535, or the frame is larger than the machine's memory.
[[nodiscard]] std::int64_t checkedByteCount(const std::string& input, std::int64_t frame, PixelSize size);

/// Memory of this machine, bytes.
[[nodiscard]] std::int64_t physicalMemory();

} // namespace quillbox
