#include "PostCapture/Clipboard/ClipboardReport.h"

#include "Platform/DisplayError.h"
#include "Platform/RunWithTimeout.h"
#include "Platform/X11/X11Queries.h"
#include "PostCapture/Clipboard/ClipboardChoice.h"
#include "Translation/Translate.h"

#include <QCoro/QCoroFuture>

#include <optional>

namespace quillbox {

namespace {

using Health = ServiceReport::Health;

// The two functions run on a thread that may wait.

ServiceReport x11Report()
{
    ServiceReport report;
    try {
        const bool hasManager = X11Queries::isSelectionOwnedOnDisplay("CLIPBOARD_MANAGER");
        report.found.emplace_back(hasManager
                ? translate("Doctor", "a clipboard manager, which keeps clips when Quillbox ends")
                : translate("Doctor", "no clipboard manager: a clip stays while Quillbox runs"));
        report.used = translate("Doctor", "the X server's selection");
        report.health = Health::Works;
    } catch (const DisplayError&) {
        report.used = translate("Doctor", "There is no display"); // the report on the screen says more
    }
    return report;
}

ServiceReport reportOfChoice()
{
    const auto choice = chooseClipboard();
    ServiceReport report;
    switch (choice.backEnd) {
    case ClipboardBackEnd::X11:
        return x11Report();
    case ClipboardBackEnd::DataControl:
        report.health = Health::Works;
        report.used = translate("Doctor", "the compositor's data control");
        report.found.push_back(choice.reason);
        break;
    case ClipboardBackEnd::Toolkit:
    case ClipboardBackEnd::FocusedToolkit:
        report.health = choice.backEnd == ClipboardBackEnd::Toolkit ? Health::Works : Health::Limited;
        report.used = translate("Doctor", "the toolkit");
        report.found.push_back(choice.reason);
        break;
    case ClipboardBackEnd::None:
        report.used = choice.reason;
        break;
    }
    return report;
}

} // namespace

QCoro::Task<ServiceReport> ClipboardReport::make()
{
    const auto answer = runWithTimeout<ServiceReport>(reportPatience, &reportOfChoice);
    const std::optional<ServiceReport> answered = co_await answer;
    ServiceReport report = answered.value_or(ServiceReport());
    report.service = QT_TRANSLATE_NOOP("Doctor", "Clipboard");
    if (!answered)
        report.used = translate("Doctor", "The display does not answer");
    co_return report;
}

} // namespace quillbox
