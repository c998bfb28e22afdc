#include "App/CommandLine/ControlCommand.h"

#include "App/CommandLine/CoreApplication.h"
#include "App/CommandLine/ErrorReport.h"
#include "App/CommandLine/StatusReport.h"
#include "App/Desktop/RunningInstance.h"

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
    ErrorReport::print("the answer can't be written to standard output");
    return ExitCode::failure;
}

int begin(const RunningInstance& running, bool json)
{
    const auto before = phaseOf(running.status());
    if (before == QLatin1String("selecting") || before == QLatin1String("recording")
        || before == QLatin1String("processing")) {
        ErrorReport::print("a clip is being made already; quillbox stop ends a recording");
        return ExitCode::failure;
    }
    const auto status = running.begin();
    return json ? print(status, json) : ExitCode::success;
}

int stop(const RunningInstance& running, bool json)
{
    const auto status = running.stop();
    if (phaseOf(status) == QLatin1String("failed")) {
        ErrorReport::print(status.value(QStringLiteral("message")).toString().toStdString());
        return ExitCode::failure;
    }
    return print(status, json);
}

int carryOut(const RunningInstance& running, const ControlOptions& options)
{
    switch (options.action) {
    case ControlOptions::Action::Begin:
        return begin(running, options.json);
    case ControlOptions::Action::Stop:
        return stop(running, options.json);
    case ControlOptions::Action::Toggle:
        return phaseOf(running.status()) == QLatin1String("recording") ? stop(running, options.json)
                                                                       : begin(running, options.json);
    case ControlOptions::Action::Status:
        return print(running.status(), options.json);
    case ControlOptions::Action::Show:
        running.show();
        break;
    case ControlOptions::Action::Quit:
        running.quit();
        break;
    }
    return ExitCode::success;
}

} // namespace

int ControlCommand::run(const ControlOptions& options)
{
    const CoreApplication application;
    const auto running = RunningInstance::find();
    if (!running) {
        ErrorReport::print("Quillbox is not running; start it with quillbox");
        return ExitCode::failure;
    }
    return carryOut(*running, options);
}

} // namespace quillbox
