#pragma once

#include "App/Workflow/ClipRequest.h"
#include "Capture/Recording.h"
#include "Encoding/GIFOptimizer.h"
#include "Encoding/Precise/PreciseOptimizer.h"
#include "Encoding/Presets.h"
#include "PostCapture/Clipboard/ClipboardBytes.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <cstdint>
#include <span>

namespace quillbox {

/// Turns what was recorded into a file. Takes values and gives values; to be used on a worker thread.
namespace ClipExport {

struct Saved {
    GIFOptimizer::Result result;       ///< without its `data`
    ClipboardBytes gif;                ///< the file
    QString path;                      ///< absolute
    std::int64_t recordedPictures = 0; ///< those that differ from the one before
};

/// Makes the GIF that `preset` asks for, dithered where that helps.
/// @pre the recording has a frame; a violation ends the process.
/// @throws GIFEncodingError  a side of a frame is too large.
[[nodiscard]] GIFOptimizer::Result encode(
    const Recording& recording, ExportPreset preset, const GIFOptimizer::Execution& execution = {});

/// Makes a GIF of the same recording that shows every change. May be called as often as wanted, after `encode` or
/// before it, with one configuration or several.
/// @pre, @throws  as `encode`; SpillError  there is no room for what has to be kept.
[[nodiscard]] PreciseOptimizer::Result encodePrecisely(
    const Recording& recording, const PreciseOptimizer::Config& config, const GIFOptimizer::Execution& execution = {});

/// Saves a finished clip in the clips folder, which is made if need be, under a name made of `date`. Where a file has
/// that name, the date moves on to the next second that is free, so that no clip replaces another.
/// @return The file's absolute path.
/// @throws std::filesystem::filesystem_error  the clips folder can't be made.
/// @throws OutputFileError  the file can't be written; nothing of it is left.
[[nodiscard]] QString save(std::span<const std::uint8_t> gif, QDateTime date);
/// The same for a file in pieces. @throws also what reading them throws
[[nodiscard]] QString saveInPieces(std::span<const KeptBytes> gif, QDateTime date);

/// Encodes the recording, saves it, unless `request` names a path as a clip that was made now, and settles it.
/// @pre the recording has a frame; a violation ends the process.
/// @throws GIFEncodingError  a side of a frame is too large.
/// @throws SpillError  there is no room for what a precise clip is made from, or what was put into a file can't be
/// read.
/// @throws std::filesystem::filesystem_error, OutputFileError  as `save`.
[[nodiscard]] Saved run(
    const Recording& recording, const ClipRequest& request, const GIFOptimizer::Execution& execution = {});

/// The bytes of the file, for the clipboard.
[[nodiscard]] QByteArray bytes(const GIFOptimizer::Result& result);

} // namespace ClipExport
} // namespace quillbox
