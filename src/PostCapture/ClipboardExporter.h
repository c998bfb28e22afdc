#pragma once

#include <QCalendar>
#include <QDateTime>
#include <QString>

namespace quillbox {

/// Where finished clips go and what they are called. Stateless; nothing here reports an error. Thread: any.
namespace ClipboardExporter {

/// The folder "Quillbox" in the user's video folder, or in the home folder where there is none; created if needed.
/// A folder that can't be created is returned all the same. An absolute path.
[[nodiscard]] QString clipsDirectory();

/// "Quillbox 2026-11-16 at 09.05.07.gif": the local time of `date` by the years, months and days of `calendar`, in
/// ASCII digits whatever the user's language. Equal within a second.
/// @param ext  The extension, without a dot.
[[nodiscard]] QString fileName(const QDateTime& date, const QString& ext, QCalendar calendar);

} // namespace ClipboardExporter
} // namespace quillbox
