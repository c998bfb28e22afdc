#pragma once

#include "PostCapture/Clipboard/ClipboardBytes.h"

#include <QCalendar>
#include <QDateTime>
#include <QString>
#include <QUrl>

#include <optional>

namespace quillbox {

/// Where finished clips go, what they are called, and how they get onto the clipboard. Stateless; nothing here reports
/// an error. Thread: any, except where said otherwise.
namespace ClipboardExporter {

/// The folder "Quillbox" in the user's video folder, or in the home folder where there is none; created if needed.
/// A folder that can't be created is returned all the same. An absolute path.
[[nodiscard]] QString clipsDirectory();

/// The same path. Creates nothing.
[[nodiscard]] QString clipsPath();

/// "Quillbox 2026-11-16 at 09.05.07.gif": the local time of `date` by the years, months and days of `calendar`, in
/// ASCII digits whatever the user's language. Equal within a second.
/// @param ext  The extension, without a dot.
[[nodiscard]] QString fileName(const QDateTime& date, const QString& ext, QCalendar calendar);

/// Puts a saved clip on the clipboard in place of what was there: exactly the file's URL and then, if given, its bytes
/// as image/gif, so that it can be pasted as a file and as an animation. Thread: main, of a program with a display.
void copyToPasteboard(const QUrl& fileURL, const std::optional<ClipboardBytes>& gifData);

} // namespace ClipboardExporter
} // namespace quillbox
