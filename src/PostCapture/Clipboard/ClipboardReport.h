#pragma once

#include "Platform/ServiceReport.h"

#include <QCoro/QCoroTask>

namespace quillbox {

/// What the desktop has to put a clip on its clipboard with. Thread: main.
namespace ClipboardReport {

[[nodiscard]] QCoro::Task<ServiceReport> make();

} // namespace ClipboardReport
} // namespace quillbox
