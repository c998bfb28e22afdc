#pragma once

#include "Encoding/Precise/DistinctFrames.h"

#include <cstdint>
#include <vector>

namespace quillbox {

/// Chooses pictures that a clip can do without. Stateless; thread: any.
namespace Thinning {

/// The pictures in the order in which they are best left out: next is always the one whose absence shows least, by
/// its squared difference from what is shown in its place, times how long. None is left out if that leaves a gap of
/// more than `maxGap` frames between two pictures; the first one never.
[[nodiscard]] std::vector<std::size_t> order(const DistinctFrames::Recording& recording, std::int64_t maxGap);

} // namespace Thinning
} // namespace quillbox
