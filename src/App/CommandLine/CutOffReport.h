#pragma once

#include "Capture/Journal/CutOffRecordings.h"
#include "Platform/ServiceReport.h"

#include <QDateTime>
#include <QVariantList>

#include <optional>
#include <string>
#include <vector>

namespace quillbox {

/// Puts recordings that were cut off into words. Stateless.
namespace CutOffReport {

/// When it began, local time. @pre it is not damaged
[[nodiscard]] QDateTime dateOf(const CutOffRecordings::Found& found);

/// "2026-11-16 09:05:07  3.4s  /…/recording-….journal"; dashes where it is damaged. No newline.
[[nodiscard]] std::string line(const CutOffRecordings::Found& found);

/// Maps with "date" (ISO 8601, UTC), "durationSeconds" and "path"; only the path of one that is damaged.
[[nodiscard]] QVariantList list(const std::vector<CutOffRecordings::Found>& all);
/// The same as a JSON array on one line, and a newline.
[[nodiscard]] std::string json(const std::vector<CutOffRecordings::Found>& all);

/// What `quillbox doctor` says of them; none if there are none.
[[nodiscard]] std::optional<ServiceReport> report(const std::vector<CutOffRecordings::Found>& all);

} // namespace CutOffReport
} // namespace quillbox
