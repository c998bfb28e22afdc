#include "App/CommandLine/Commands/Command.h"

#include "App/CommandLine/CoreApplication.h"
#include "App/CommandLine/CutOffReport.h"
#include "App/CommandLine/DoctorReport.h"
#include "App/CommandLine/Terminal/ErrorReport.h"
#include "App/Desktop/HotkeyReport.h"
#include "App/Desktop/TrayReport.h"
#include "App/FrameSources/Images/ImageReport.h"
#include "App/Updates/UpdateReport.h"
#include "Capture/CaptureReport.h"
#include "Platform/WindowSystem.h"
#include "PostCapture/Clipboard/ClipboardReport.h"
#include "PostCapture/FileRevealReport.h"
#include "Translation/Translate.h"

#include <QCoro/QCoroTask>
#include <QtGlobal>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <langinfo.h>
#include <string_view>
#include <unistd.h>
#include <utility>
#include <vector>

namespace quillbox {
namespace {

/// The first is the one that recording depends on.
QCoro::Task<std::vector<ServiceReport>> askEverybody()
{
    std::vector<QCoro::Task<ServiceReport>> asked; // each is under way as soon as it is made
    asked.push_back(CaptureReport::make());
    asked.push_back(HotkeyReport::make());
    asked.push_back(ClipboardReport::make());
    asked.push_back(TrayReport::make());
    asked.push_back(FileRevealReport::make());
    asked.push_back(UpdateReport::make());
    std::vector<ServiceReport> reports;
    for (auto& asking : asked) {
        const ServiceReport report = co_await asking;
        reports.push_back(report);
    }
    co_return reports;
}

std::string variable(const char* name)
{
    const char* const value = std::getenv(name);
    return value == nullptr ? "" : value;
}

DoctorReport::Style styleOfOutput()
{
    DoctorReport::Style style;
    style.hasColors
        = ::isatty(STDOUT_FILENO) == 1 && variable("NO_COLOR").empty() && variable("TERM") != "dumb"; // no-color.org
    (void)std::setlocale(LC_CTYPE, ""); // one that is not known is taken for plain ASCII
    style.hasSymbols = std::string_view(::nl_langinfo(CODESET)) == "UTF-8";
    return style;
}

const char* nameOf(WindowSystem windowSystem)
{
    if (windowSystem == WindowSystem::None)
        return QT_TRANSLATE_NOOP("Doctor", "no display");
    return windowSystem == WindowSystem::Wayland ? "Wayland" : "X11";
}

} // namespace

int Command::run(const DoctorOptions& options)
{
    DoctorReport::Findings findings;
    {
        const CoreApplication application;
        findings.services = QCoro::waitFor(askEverybody());
        findings.services.push_back(ImageReport::make());
        if (auto cutOff = CutOffReport::report(CutOffRecordings::find()))
            findings.services.push_back(std::move(*cutOff));
    }
    findings.windowSystem = nameOf(sessionWindowSystem());
    findings.desktop = variable("XDG_CURRENT_DESKTOP");
    const auto text = options.json ? DoctorReport::json(findings) : DoctorReport::humanText(findings, styleOfOutput());
    (void)std::fwrite(text.data(), 1, text.size(), stdout); // checked by the flush
    if (std::fflush(stdout) != 0) {
        ErrorReport::print(translate("Doctor", "the report can't be written to standard output"));
        return ExitCode::failure;
    }
    return DoctorReport::canRecord(findings) ? ExitCode::success : ExitCode::failure;
}

} // namespace quillbox
