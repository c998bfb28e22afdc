#pragma once

#include "Platform/ServiceReport.h"

#include <QCoro/QCoroTask>

namespace quillbox {

/// What the system has to update this program with. Thread: main.
namespace UpdateReport {

[[nodiscard]] QCoro::Task<ServiceReport> make();

} // namespace UpdateReport
} // namespace quillbox
