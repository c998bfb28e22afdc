#include "App/DesktopCommand.h"

#include "App/CommandLine/CoreApplication.h"
#include "App/CommandLine/Environment.h"
#include "App/CommandLine/Terminal/ErrorReport.h"
#include "App/CommandLine/TerminationSignals.h"
#include "App/Desktop/DesktopApplication.h"
#include "App/Desktop/RunningInstance.h"
#include "App/QuillboxApp.h"

namespace quillbox {
namespace {

/// Without windows: a second start is to be quick.
bool activateRunning()
{
    const CoreApplication application;
    if (!RunningInstance::exists())
        return false;
    RunningInstance::activate();
    return true;
}

} // namespace

int DesktopCommand::run()
{
    if (activateRunning())
        return 0;
    if (const auto complaint = Environment::complaint()) // no reason to keep a desktop without the application
        ErrorReport::print(*complaint);
    const DesktopApplication application;
    QuillboxApp app;
    if (!app.claimName()) { // somebody was faster
        RunningInstance::activate();
        return 0;
    }
    TerminationSignals signals;
    QObject::connect(&signals, &TerminationSignals::received, &signals, [&app] { app.quit(); });
    app.start();
    return DesktopApplication::run();
}

} // namespace quillbox
