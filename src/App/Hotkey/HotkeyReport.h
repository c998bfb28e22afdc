#pragma once

#include "Capture/ServiceReport.h"

#include <QCoro/QCoroTask>

namespace quillbox {

/// What the desktop has for a hotkey, and what makeHotkeyService() makes of it. Thread: main.
namespace HotkeyReport {

/// Finds out, without a display as well; asks the user nothing and keeps nothing.
[[nodiscard]] QCoro::Task<ServiceReport> make();

} // namespace HotkeyReport
} // namespace quillbox
