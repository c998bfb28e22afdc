#pragma once

#include "Platform/ServiceReport.h"

#include <QCoro/QCoroTask>

namespace quillbox {

/// What the desktop has for an icon in its tray, as TrayHost looks for it. Thread: main.
namespace TrayReport {

[[nodiscard]] QCoro::Task<ServiceReport> make();

} // namespace TrayReport
} // namespace quillbox
