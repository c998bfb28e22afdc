#include "App/CommandLine/Commands/Command.h"

#include "App/CommandLine/CoreApplication.h"
#include "App/CommandLine/CutOffReport.h"
#include "App/CommandLine/StatusReport.h"
#include "App/CommandLine/Terminal/ErrorReport.h"
#include "App/Desktop/RunningInstance.h"
#include "Translation/Translate.h"

#include <cstdio>
#include <functional>

namespace quillbox {
namespace {

QString phaseOf(const QVariantMap& status)
{
    return status.value(QStringLiteral("phase")).toString();
}

int print(const QVariantMap& status, bool json)
{
    const auto text = json ? StatusReport::jsonLine(status) : StatusReport::humanLine(status);
    (void)std::fwrite(text.data(), 1, text.size(), stdout); // checked by the flush
    if (std::fflush(stdout) == 0)
        return ExitCode::success;
    ErrorReport::print(translate("ControlCommand", "the answer can't be written to standard output"));
    return ExitCode::failure;
}

int begin(const ControlOptions& options)
{
    const auto before = phaseOf(RunningInstance::status());
    if (before == QLatin1String("selecting") || before == QLatin1String("recording")
        || before == QLatin1String("processing")) {
        ErrorReport::print(translate("ControlCommand", "a clip is being made already; quillbox stop ends a recording"));
        return ExitCode::failure;
    }
    const auto status = RunningInstance::begin(options.precise);
    return options.json ? print(status, options.json) : ExitCode::success;
}

/// Tells what became of a clip.
int report(const QVariantMap& status, bool json)
{
    if (phaseOf(status) == QLatin1String("failed")) {
        ErrorReport::print(status.value(QStringLiteral("message")).toString().toStdString());
        return ExitCode::failure;
    }
    return print(status, json);
}

int status(bool json)
{
    auto status = RunningInstance::status();
    status.insert(QStringLiteral("cutOff"), CutOffReport::list(CutOffRecordings::find()));
    return print(status, json);
}

int carryOut(const ControlOptions& options)
{
    switch (options.action) {
    case ControlOptions::Action::Begin:
        return begin(options);
    case ControlOptions::Action::Stop:
        return report(RunningInstance::stop(), options.json);
    case ControlOptions::Action::Toggle:
        return phaseOf(RunningInstance::status()) == QLatin1String("recording")
            ? report(RunningInstance::stop(), options.json)
            : begin(options);
    case ControlOptions::Action::Again:
        return report(RunningInstance::again(options.precise, options.preset), options.json);
    case ControlOptions::Action::Status:
        return status(options.json);
    case ControlOptions::Action::Show:
        RunningInstance::show();
        break;
    case ControlOptions::Action::Quit:
        RunningInstance::quit();
        break;
    }
    return ExitCode::success;
}

} // namespace

int Command::run(const ControlOptions& options)
{
    const CoreApplication application;
    if (!RunningInstance::exists()) {
        ErrorReport::print(translate("ControlCommand", "Quillbox is not running; start it with quillbox"));
        return ExitCode::failure;
    }
    return carryOut(options);
}

} // namespace quillbox
