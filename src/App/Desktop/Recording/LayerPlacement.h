#pragma once

#include "Capture/CaptureRegion.h"

#include <QRect>
#include <QSize>

namespace quillbox {

/// Where something lies on an output of a Wayland compositor. Stateless.
namespace LayerPlacement {

/// The compositor's points that a region covers, also those that it covers in part: with a scale of its own the toolkit
/// has other points.
/// @param toolkit     The screen's size in the points that the region counts, at least 1 × 1.
/// @param compositor  The same in the compositor's.
[[nodiscard]] QRect covered(const CaptureRegion& region, const QSize& toolkit, const QSize& compositor);

} // namespace LayerPlacement
} // namespace quillbox
