#pragma once

#include "Platform/ServiceReport.h"

#include <QCoro/QCoroTask>

namespace quillbox {

/// What the desktop has to show a clip in its folder with, in the order in which FileReveal tries it. Thread: main.
namespace FileRevealReport {

[[nodiscard]] QCoro::Task<ServiceReport> make();

} // namespace FileRevealReport
} // namespace quillbox
