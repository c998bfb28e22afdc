#pragma once

#include "Encoding/Presets.h"

#include <QString>

/// What presets are called, in the user's language. Stateless; thread: main.
namespace quillbox::PresetTexts {

[[nodiscard]] QString title(ExportPreset preset);
[[nodiscard]] QString subtitle(ExportPreset preset);

} // namespace quillbox::PresetTexts
