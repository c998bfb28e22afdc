#pragma once

#include "Capture/CaptureRegion.h"

#include <QFuture>

#include <optional>

namespace quillbox {

/// What a command does with the user's screen beside recording it. Thread: main, with a DesktopApplication.
namespace ScreenSelection {

/// Lets the user drag out a region; holds none if that was cancelled.
[[nodiscard]] QFuture<std::optional<CaptureRegion>> askForRegion();

} // namespace ScreenSelection
} // namespace quillbox
