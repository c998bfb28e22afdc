#include "App/CommandLine/Commands/Command.h"

#include "App/CommandLine/ClipOutput.h"
#include "App/CommandLine/CoreApplication.h"
#include "App/CommandLine/CutOffReport.h"
#include "App/CommandLine/OptimizerProgress.h"
#include "App/CommandLine/RecordedClip.h"
#include "App/CommandLine/Terminal/ErrorReport.h"
#include "App/CommandLine/Terminal/ProgressLine.h"
#include "App/Workflow/FlowMessages.h"
#include "PostCapture/HistoryStore.h"
#include "Translation/Translate.h"

#include <QFile>

#include <cstdio>
#include <exception>
#include <optional>
#include <string>
#include <vector>

namespace quillbox {
namespace {

using CutOffRecordings::Found;

int list(const std::vector<Found>& all, bool json)
{
    std::string text;
    for (const Found& found : all)
        text += CutOffReport::line(found) + '\n';
    if (json)
        text = CutOffReport::json(all);
    (void)std::fwrite(text.data(), 1, text.size(), stdout); // checked by the flush
    if (std::fflush(stdout) == 0)
        return ExitCode::success;
    ErrorReport::print(translate("HistoryCommand", "the list can't be written to standard output"));
    return ExitCode::failure;
}

void complain(const Found& found, const std::string& reason)
{
    const auto name = found.frameCount == 0
        ? found.path.string()
        : CutOffReport::dateOf(found).toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")).toStdString();
    ErrorReport::print(name + ": " + reason);
}

int discard(const std::vector<Found>& all)
{
    int exitCode = ExitCode::success;
    for (const Found& found : all) {
        try {
            CutOffRecordings::discard(found);
        } catch (const CutOffError& error) {
            complain(found, error.what());
            exitCode = ExitCode::failure;
        }
    }
    return exitCode;
}

ClipEntry entryFor(const RecordedClip::Encoded& encoded, const Recording& recording, const std::string& path,
    const OutputOptions& options)
{
    const auto title = options.preset.title();
    return {
        .date = QDateTime::currentDateTimeUtc(),
        .format = QStringLiteral("GIF"),
        .preset = QString::fromUtf8(title.data(), std::ssize(title)),
        .outputPath = QFile::decodeName(QByteArray::fromStdString(path)),
        .byteCount = encoded.result.byteCount,
        .durationSeconds = encoded.result.durationSeconds,
        .width = recording.frames().front().width(),
        .height = recording.frames().front().height(),
    };
}

/// @throws what taking, encoding and saving throw
void makeClip(const Found& found, const OutputOptions& options)
{
    ProgressLine line(!options.quiet);
    line.show(translate("ProgressLine", "reading"));
    const Recording recording = CutOffRecordings::take(found);
    const auto preset = options.precise ? std::nullopt : std::optional(options.preset);
    const auto encoded = RecordedClip::encode(recording, options, progressOn(line, preset));
    const auto path = RecordedClip::save(encoded, recording, options, CutOffReport::dateOf(found), line);
    if (!options.output)
        HistoryStore().record(entryFor(encoded, recording, path, options));
}

} // namespace

int Command::run(const RecoverOptions& options)
{
    const CoreApplication application;
    const auto all = CutOffRecordings::find();
    if (options.action == RecoverOptions::Action::List)
        return list(all, options.out.json);
    if (options.action == RecoverOptions::Action::Discard)
        return discard(all);
    if (all.empty()) {
        ErrorReport::print(translate("RecoverCommand", "no recording was cut off; there is nothing to recover"));
        return ExitCode::failure;
    }
    if (options.out.output && all.size() > 1)
        throw UsageError(
            translate("RecoverCommand", "several recordings were cut off; leave out -o to make a clip of each"));
    if (options.out.output)
        ClipOutput(*options.out.output, options.out.force).check();
    int exitCode = ExitCode::success;
    for (const Found& found : all) {
        try {
            makeClip(found, options.out);
        } catch (const CutOffError& error) {
            complain(found, error.what());
            exitCode = ExitCode::failure;
        } catch (const std::exception& error) {
            complain(found, FlowMessages::couldNotSave(error).toStdString());
            exitCode = ExitCode::failure;
        }
    }
    return exitCode;
}

} // namespace quillbox
