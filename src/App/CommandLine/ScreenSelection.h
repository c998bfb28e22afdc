#pragma once

#include "Capture/Region/RegionSelector.h"

#include <QFuture>

#include <memory>

namespace quillbox {

class TerminationSignals;

/// What a command does with the user's screen beside recording it. Thread: main, with a DesktopApplication.
namespace ScreenSelection {

/// Lets the user drag out a region of `screen`; that is cancelled if `stop` comes before.
[[nodiscard]] QFuture<RegionSelector::Outcome> askForRegion(
    std::shared_ptr<ScreenSession> screen, const TerminationSignals& stop);

} // namespace ScreenSelection
} // namespace quillbox
