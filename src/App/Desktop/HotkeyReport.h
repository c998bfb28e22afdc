#pragma once

#include "App/Hotkey/HotkeyService.h"
#include "Platform/ServiceReport.h"

#include <QCoro/QCoroTask>
#include <QVariantMap>

namespace quillbox {

/// What the desktop has for a hotkey, and what makeHotkeyService() makes of it. Thread: main.
namespace HotkeyReport {

/// What became of the running application's hotkey, for other processes: "status", one word; "keys", where the
/// desktop describes them; and "key", where it is known what the keyboard calls it.
[[nodiscard]] QVariantMap told(const HotkeyState& state);

/// Finds out, without a display as well; asks the user nothing and keeps nothing.
[[nodiscard]] QCoro::Task<ServiceReport> make();

} // namespace HotkeyReport
} // namespace quillbox
