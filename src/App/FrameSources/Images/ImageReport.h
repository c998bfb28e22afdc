#pragma once

#include "Platform/ServiceReport.h"

namespace quillbox {

/// Which images `quillbox encode` can read here.
namespace ImageReport {

/// Needs a QCoreApplication, to find the plugins.
[[nodiscard]] ServiceReport make();

} // namespace ImageReport
} // namespace quillbox
