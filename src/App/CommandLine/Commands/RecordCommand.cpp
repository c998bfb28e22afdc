#include "App/CommandLine/Commands/Command.h"

#include "App/CommandLine/ClipboardHold.h"
#include "App/CommandLine/ClipOutput.h"
#include "App/CommandLine/CoreApplication.h"
#include "App/CommandLine/Environment.h"
#include "App/CommandLine/OptimizerProgress.h"
#include "App/CommandLine/RecordedClip.h"
#include "App/CommandLine/RecordingEnd.h"
#include "App/CommandLine/ScreenSelection.h"
#include "App/CommandLine/Terminal/ErrorReport.h"
#include "App/CommandLine/Terminal/ProgressLine.h"
#include "App/CommandLine/TerminationSignals.h"
#include "App/Desktop/DesktopApplication.h"
#include "App/Desktop/RunningInstance.h"
#include "App/Workflow/ClipExport.h"
#include "App/Workflow/FlowMessages.h"
#include "Capture/StreamRecorder.h"
#include "Encoding/GIFOptimizer.h"
#include "Encoding/Precise/PreciseOptimizer.h"
#include "PostCapture/Clipboard/ClipboardChoice.h"
#include "Translation/Translate.h"

#include <QCoro/QCoroFuture>
#include <QCoro/QCoroTask>
#include <QFile>
#include <QFileInfo>
#include <QtConcurrent/QtConcurrentRun>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <variant>
#include <vector>

namespace quillbox {
namespace {

std::string startMessage(const std::exception& error)
{
    const auto* const recorderError = dynamic_cast<const StreamRecorder::RecorderError*>(&error);
    const std::string reason = recorderError != nullptr
        ? translate("RecordCommand", "There is no display to record. Set DISPLAY to an X11 display, such as :0")
        : std::string(error.what());
    return withArguments(translate("RecordCommand", "Couldn't start recording: %1."), {reason});
}

std::string earlyEnd(const std::string& reason)
{
    return withArguments(
        translate("RecordCommand", "The recording ended early: %1. What was recorded is kept."), {reason});
}

/// Records into `recorder` until `end`, and says on `line` how long it has been.
/// @return the reason, where the screen could not be captured to the end.
QCoro::Task<QString> record(StreamRecorder& recorder, RecordingEnd& end, CaptureRegion region, ProgressLine& line)
{
    co_await recorder.start(region);
    end.startClock();
    QTimer display;
    const auto show = [&recorder, &line] {
        const auto frames = recorder.frameCount();
        const auto count = static_cast<int>(frames); // a day has fewer than three million
        const auto text = translate("ProgressLine", "recording %1 s, %n frame(s); Ctrl-C stops", nullptr, count);
        line.show(withArguments(text, {std::to_string(frames / FrameTimeline::framesPerSecond)}));
    };
    if (line.isVisible()) {
        QObject::connect(&display, &QTimer::timeout, &display, show);
        display.start(std::chrono::milliseconds(200));
        show();
    }
    const auto ended = end.future();
    co_return co_await ended;
}

/// What was recorded, no frame if nothing could be; errors have been reported then.
QCoro::Task<Recording> recordFrames(
    std::shared_ptr<ScreenSession> screen, RecordOptions options, const TerminationSignals& signals, ProgressLine& line)
{
    StreamRecorder recorder(std::move(screen));
    if (options.durationSeconds) // a timer may be late, the clip need not show it
        recorder.setMaxFrames(std::max(1LL, std::llround(*options.durationSeconds * FrameTimeline::framesPerSecond)));
    RecordingEnd end(recorder, signals, options.durationSeconds);
    QString interruption;
    std::string failure;
    try {
        interruption = co_await record(recorder, end, *options.region, line);
    } catch (const std::exception& error) {
        failure = startMessage(error);
    }
    const Recording recording = co_await recorder.stop();
    line.clear();
    if (!failure.empty()) {
        ErrorReport::print(failure);
        co_return Recording();
    }
    if (recording.frames().empty()) {
        const auto reason = interruption.isEmpty() ? QString() : QLatin1Char(' ') + interruption + QLatin1Char('.');
        ErrorReport::print((FlowMessages::noFrames() + reason).toStdString());
    } else if (!interruption.isEmpty()) {
        ErrorReport::print(earlyEnd(interruption.toStdString()));
    }
    co_return recording;
}

RecordedClip::Encoded encode(const Recording& recording, const OutputOptions& options,
    const std::function<void(const GIFOptimizer::Progress&)>& progress)
{
    leaveEndingSignalsToMainThread();
    return RecordedClip::encode(recording, options, progress);
}

/// Why no clip can be copied on this desktop, as sentences for the user; empty where one can.
std::string obstacleToCopying()
{
    if (RunningInstance::exists()) // which has windows
        return {};
    const auto choice = chooseClipboard();
    if (choice.backEnd == ClipboardBackEnd::FocusedToolkit)
        return withArguments(
            translate("RecordCommand", "%1. The desktop application does it: start quillbox first."), {choice.reason});
    return choice.backEnd == ClipboardBackEnd::None ? withArguments(translate("RecordCommand", "%1."), {choice.reason})
                                                    : std::string();
}

/// Has the running application copy the clip. @return false where that can't be
bool copyByRunningInstance(const QString& path)
{
    if (!RunningInstance::exists() || !RunningInstance::copy(path))
        return false;
    if (RunningInstance::status().value(QStringLiteral("clipboard")) == QLatin1String("pending"))
        ErrorReport::print(
            translate("RecordCommand", "the clip gets onto the clipboard when the panel is opened: quillbox show"));
    return true;
}

/// Puts the clip on the clipboard: of the running application, which stays, else of this process, which then stays
/// until another program copies something. @return false where that can't be; the error has been reported then
QCoro::Task<bool> copy(std::string output, QByteArray gif)
{
    const auto path = QFileInfo(QFile::decodeName(QByteArray::fromStdString(output))).absoluteFilePath();
    if (copyByRunningInstance(path))
        co_return true;
    const ClipboardHold hold(path, gif);
    if (!hold.isHeld()) {
        ErrorReport::print(translate("RecordCommand", "the clip is saved, but it couldn't be put on the clipboard"));
        co_return false;
    }
    ErrorReport::print(translate(
        "RecordCommand", "the clip stays on the clipboard until something else is copied; Ctrl-C ends this program"));
    const auto ended = hold.ended();
    co_await ended;
    co_return true;
}

/// Says that the screen lacks a part of the region that the user wrote.
void warnOfCut(CaptureRegion region, const RGBAFrame& frame)
{
    if (frame.width() >= region.width && frame.height() >= region.height)
        return;
    const auto text = translate("RecordCommand",
        "warning: only %1x%2 of the region's %3x%4 are on the main display; the rest is not in the clip");
    ErrorReport::print(withArguments(text,
        {std::to_string(frame.width()), std::to_string(frame.height()), std::to_string(region.width),
            std::to_string(region.height)}));
}

/// Shows how far the clip is, and once a signal has come what another one does.
std::function<void(const GIFOptimizer::Progress&)> progressAfter(
    const TerminationSignals& signals, ProgressLine& line, std::optional<ExportPreset> preset)
{
    if (!line.isVisible())
        return {};
    const auto isWarned = std::make_shared<std::atomic<bool>>(signals.wasReceived());
    QObject::connect(&signals, &TerminationSignals::received, &signals, [isWarned] { *isWarned = true; });
    return [isWarned, &line, preset](const GIFOptimizer::Progress& progress) {
        const auto text = progressText(progress, preset);
        line.show(*isWarned
                ? withArguments(translate("ProgressLine", "%1; Ctrl-C again ends this without a clip"), {text})
                : text);
    };
}

QCoro::Task<int> recordAndSave(RecordOptions options)
{
    if (const auto obstacle = options.copy ? obstacleToCopying() : std::string(); !obstacle.empty()) {
        ErrorReport::print(withArguments(
            translate("RecordCommand", "the clip could not be copied, so nothing was recorded. %1"), {obstacle}));
        co_return ExitCode::failure;
    }
    const auto screen = std::make_shared<ScreenSession>();
    const bool isSelected = !options.region;
    if (isSelected) {
        const TerminationSignals stop;
        const auto selection = ScreenSelection::askForRegion(screen, stop);
        const auto outcome = co_await selection;
        if (const auto* const region = std::get_if<CaptureRegion>(&outcome))
            options.region = *region;
        else if (const auto* const error = std::get_if<CaptureError>(&outcome))
            ErrorReport::print(startMessage(*error));
        else
            ErrorReport::print(translate("RecordCommand", "nothing was selected, so nothing was recorded"));
    }
    if (!options.region)
        co_return ExitCode::failure;
    ProgressLine line(!options.out.quiet);
    // The first signal ends the recording. Where that has just ended by itself, it is meant for nothing else.
    std::optional<TerminationSignals> signals(std::in_place);
    auto recorded = recordFrames(screen, options, *signals, line);
    const Recording recording = co_await recorded;
    if (recording.frames().empty())
        co_return ExitCode::failure;
    if (!isSelected)
        warnOfCut(*options.region, recording.frames().front());
    else if (screen->takeRemainsLeft())
        ErrorReport::print(translate("RecordCommand",
            "warning: the clip may begin with remains of the selection: the desktop took more than two seconds to "
            "remove them from the screen"));
    std::string failure;
    try {
        const auto preset = options.out.precise ? std::nullopt : std::optional(options.out.preset);
        auto job = QtConcurrent::run(&encode, recording, options.out, progressAfter(*signals, line, preset));
        const auto encoded = co_await job;
        const auto output = RecordedClip::save(encoded, recording, options.out, QDateTime::currentDateTime(), line);
        signals.reset();
        if (options.copy) {
            auto copying = copy(output, ClipExport::bytes(encoded.result));
            if (!co_await copying)
                co_return ExitCode::failure;
        }
        co_return ExitCode::success;
    } catch (const std::exception& error) {
        failure = FlowMessages::couldNotSave(error).toStdString();
    }
    line.clear();
    ErrorReport::print(failure);
    co_return ExitCode::failure;
}

} // namespace

int Command::run(const RecordOptions& options)
{
    Environment::check();
    if (options.out.output)
        ClipOutput(*options.out.output, options.out.force).check();
    std::variant<std::monostate, CoreApplication, DesktopApplication> application;
    if (!options.region || options.copy)
        application.emplace<DesktopApplication>();
    else
        application.emplace<CoreApplication>();
    return QCoro::waitFor(recordAndSave(options));
}

} // namespace quillbox
