#pragma once

#include <QVariantMap>

#include <string>

namespace quillbox {

/// Describes where the running application stands, as `ApplicationService::Status` puts it.
namespace StatusReport {

/// "recording", two spaces and the time since its start, or "done", two spaces and the path, or "failed" and the
/// message; a newline at the end. A second line where recordings were cut off ("cutOff", as CutOffReport::list() has
/// it).
[[nodiscard]] std::string humanLine(const QVariantMap& status);

/// One JSON object on one line with "phase" and what belongs to it, and a newline.
[[nodiscard]] std::string jsonLine(const QVariantMap& status);

} // namespace StatusReport
} // namespace quillbox
