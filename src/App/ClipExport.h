#pragma once

#include "Encoding/GIFOptimizer.h"
#include "Encoding/PixelTypes.h"
#include "Encoding/Presets.h"

#include <QByteArray>
#include <QString>

#include <vector>

namespace quillbox {

/// Turns what was recorded into a file. Takes values and gives values; to be used on a worker thread.
namespace ClipExport {

struct Saved {
    GIFOptimizer::Result result;
    QString path; ///< absolute
};

/// Makes the GIF that `preset` asks for, dithered where that helps.
/// @param frames  Oldest first, 30 a second. @pre not empty.
/// @throws GIFEncodingError  a side of a frame is too large.
[[nodiscard]] GIFOptimizer::Result encode(
    const std::vector<RGBAFrame>& frames, ExportPreset preset, const GIFOptimizer::Execution& execution = {});

/// Where a clip that is saved now belongs: in the clips folder, under a name made of the local time.
/// @return An absolute path.
[[nodiscard]] QString newPath();

/// Encodes the frames and saves them at `newPath()`, in a folder that is made if need be.
/// @param frames  Oldest first, 30 a second. @pre not empty.
/// @throws GIFEncodingError  a side of a frame is too large.
/// @throws std::filesystem::filesystem_error  the clips folder can't be made.
/// @throws OutputFileError  the file can't be written; nothing of it is left.
[[nodiscard]] Saved run(
    const std::vector<RGBAFrame>& frames, ExportPreset preset, const GIFOptimizer::Execution& execution = {});

/// The bytes of the file, for the clipboard.
[[nodiscard]] QByteArray bytes(const GIFOptimizer::Result& result);

} // namespace ClipExport
} // namespace quillbox
