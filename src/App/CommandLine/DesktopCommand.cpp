#include "App/CommandLine/DesktopCommand.h"

#include "App/CommandLine/CoreApplication.h"
#include "App/Desktop/DesktopApplication.h"
#include "App/Desktop/RunningInstance.h"
#include "App/QuillboxApp.h"

namespace quillbox {
namespace {

/// Without windows: a second start is to be quick.
bool activateRunning()
{
    const CoreApplication application;
    const auto running = RunningInstance::find();
    if (!running)
        return false;
    running->activate();
    return true;
}

} // namespace

int DesktopCommand::run()
{
    if (activateRunning())
        return 0;
    const DesktopApplication application;
    QuillboxApp app;
    if (!app.claimName()) { // somebody was faster
        if (const auto running = RunningInstance::find())
            running->activate();
        return 0;
    }
    app.start();
    return application.run();
}

} // namespace quillbox
