#pragma once

#include "Encoding/GIFOptimizer.h"
#include "Encoding/PixelTypes.h"
#include "Encoding/Presets.h"

#include <QString>

#include <vector>

namespace quillbox {

/// Turns what was recorded into a file.
namespace ClipExport {

struct Saved {
    GIFOptimizer::Result result;
    QString path; ///< absolute
};

/// Makes the GIF that `preset` asks for and saves it in the clips folder under a name made of the time. Takes values
/// and gives values; to be run on a worker thread.
/// @param frames  Oldest first, 30 a second. @pre not empty.
/// @throws GIFEncodingError  a side of a frame is too large.
/// @throws std::filesystem::filesystem_error  the clips folder can't be made.
/// @throws OutputFileError  the file can't be written; nothing of it is left.
[[nodiscard]] Saved run(const std::vector<RGBAFrame>& frames, ExportPreset preset);

} // namespace ClipExport
} // namespace quillbox
