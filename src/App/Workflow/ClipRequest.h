#pragma once

#include "Encoding/Presets.h"

#include <QString>

#include <cstdint>

namespace quillbox {

/// What a clip is to be like, and where it goes. A value.
struct ClipRequest {
    ExportPreset preset = ExportPreset::slack;
    bool isPrecise = false; ///< every change at its time, as exactly as the preset's size and width allow
    QString path = {};      ///< absolute, a file there gives way; empty for that name in the clips folder

    friend bool operator==(const ClipRequest&, const ClipRequest&) = default;
};

/// A clip that is saved, on the clipboard and in the history. A value.
struct FinishedClip {
    ClipRequest request;
    QString path; ///< absolute
    std::int64_t byteCount = 0;
    std::int64_t shownPictures = 0;    ///< of the recording, in the clip
    std::int64_t recordedPictures = 0; ///< those that differ from the one before; at least as many

    /// Whether it is larger than the preset allows.
    [[nodiscard]] bool exceedsBudget() const { return byteCount > request.preset.targetBytes(); }
    /// Whether more than a tenth of the pictures is missing.
    [[nodiscard]] bool lacksPictures() const { return 10 * shownPictures < 9 * recordedPictures; }

    friend bool operator==(const FinishedClip&, const FinishedClip&) = default;
};

} // namespace quillbox
