#pragma once

#include "Encoding/Precise/DistinctFrames.h"

#include <cstdint>

namespace quillbox::reference {

/// The most colours with which a recording fits a budget if every picture is shown with one table: each number is tried
/// out, from the largest on. 0 if none fits.
[[nodiscard]] std::int64_t mostColors(const DistinctFrames::Recording& recording, std::int64_t targetBytes);

} // namespace quillbox::reference
