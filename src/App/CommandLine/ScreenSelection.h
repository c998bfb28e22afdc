#pragma once

#include "Capture/CaptureRegion.h"

#include <QFuture>

#include <optional>

namespace quillbox {

class TerminationSignals;

/// What a command does with the user's screen beside recording it. Thread: main, with a DesktopApplication.
namespace ScreenSelection {

/// Lets the user drag out a region; holds none if that was cancelled, or `stop` came before.
[[nodiscard]] QFuture<std::optional<CaptureRegion>> askForRegion(const TerminationSignals& stop);

} // namespace ScreenSelection
} // namespace quillbox
