#pragma once

#include "Encoding/Precise/DistinctFrames.h"

#include <cstdint>

namespace quillbox {

/// The same recording with a narrower screen. @param width  pixels, 1…its width. Thread: any.
[[nodiscard]] DistinctFrames::Recording shrunk(const DistinctFrames::Recording& recording, std::int64_t width);

} // namespace quillbox
