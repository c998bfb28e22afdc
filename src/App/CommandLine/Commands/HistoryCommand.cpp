#include "App/CommandLine/Commands/Command.h"

#include "App/CommandLine/Terminal/ErrorReport.h"
#include "PostCapture/HistoryFile.h"
#include "PostCapture/HistoryStore.h"
#include "Translation/Translate.h"
#include "Views/ByteFormat.h"

#include <cstdio>

namespace quillbox {
namespace {

/// "2026-11-16 09:05:07  Slack  432 KB  3.4s  /home/…/clip.gif"; a column that is not known is a dash.
QString lineFor(const ClipEntry& entry)
{
    const auto dash = QStringLiteral("-");
    const QStringList fields{
        entry.date.toLocalTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")),
        entry.preset,
        entry.byteCount ? ByteFormat::shortText(*entry.byteCount) : dash,
        entry.durationSeconds ? QString::number(*entry.durationSeconds, 'f', 1) + QLatin1Char('s') : dash,
        entry.outputPath.value_or(dash),
    };
    return fields.join(QStringLiteral("  "));
}

std::string textOf(const std::vector<ClipEntry>& entries)
{
    std::string text;
    for (const ClipEntry& entry : entries)
        text += ErrorReport::oneLine(lineFor(entry).toStdString()) + '\n';
    return text;
}

} // namespace

int Command::run(const HistoryOptions& options)
{
    const HistoryStore history;
    const auto text = options.json ? HistoryFile::encode(history.entries()).toStdString() : textOf(history.entries());
    (void)std::fwrite(text.data(), 1, text.size(), stdout); // checked by the flush
    if (std::fflush(stdout) == 0)
        return ExitCode::success;
    ErrorReport::print(translate("HistoryCommand", "the list can't be written to standard output"));
    return ExitCode::failure;
}

} // namespace quillbox
