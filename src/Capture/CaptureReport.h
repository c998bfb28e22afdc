#pragma once

#include "Platform/ServiceReport.h"

#include <QCoro/QCoroTask>

#include <string>
#include <string_view>

namespace quillbox {

/// What the desktop has to capture its screen with, and what chooseCapture() makes of it. Thread: main.
namespace CaptureReport {

/// Finds out, without a display as well, and asks the user nothing.
[[nodiscard]] QCoro::Task<ServiceReport> make();

/// The Debian package with the portal's back end that casts the screen of a desktop; empty where we know none.
/// @param desktop  As XDG_CURRENT_DESKTOP names it: one name, or several with colons between.
[[nodiscard]] std::string portalPackage(std::string_view desktop);

} // namespace CaptureReport
} // namespace quillbox
