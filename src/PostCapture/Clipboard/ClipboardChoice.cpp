#include "PostCapture/Clipboard/ClipboardChoice.h"

#include "Platform/WindowSystem.h"
#include "PostCapture/Clipboard/Wayland/DataControl.h"
#include "Translation/Translate.h"

namespace quillbox {
namespace {

using BackEnd = ClipboardBackEnd;

constexpr auto variable = "QUILLBOX_CLIPBOARD_BACKEND";
constexpr BackEndNames<BackEnd, 4> names{{
    {"x11", BackEnd::X11},
    {"data-control", BackEnd::DataControl},
    {"toolkit", BackEnd::Toolkit},
    {"none", BackEnd::None},
}};

} // namespace

BackEndChoice<BackEnd> chooseClipboard()
{
    if (auto forced = backEndByEnvironment(variable, names)) {
        if (forced->reason.empty())
            forced->reason = withArguments(
                translate("Clipboard", "QUILLBOX_CLIPBOARD_BACKEND is \"%1\""), {qgetenv(variable).toStdString()});
        if (forced->backEnd == BackEnd::Toolkit && toolkitWindowSystem() == WindowSystem::Wayland)
            forced->backEnd = BackEnd::FocusedToolkit;
        return *forced;
    }
    switch (toolkitWindowSystem()) {
    case WindowSystem::None:
        return {BackEnd::None, translate("Clipboard", "There is no display")};
    case WindowSystem::X11:
        return {BackEnd::X11, translate("Clipboard", "The desktop is an X11 display")};
    case WindowSystem::Other:
        return {BackEnd::Toolkit,
            withArguments(translate("Clipboard", "The toolkit shows its windows on \"%1\""), {toolkitPlatform()})};
    case WindowSystem::Wayland:
        break;
    }
    if (const char* const protocol = DataControl::offered())
        return {BackEnd::DataControl, withArguments(translate("Clipboard", "The compositor offers %1"), {protocol})};
    return {BackEnd::FocusedToolkit,
        translate("Clipboard", "The compositor lets only a window that has the keyboard set the clipboard")};
}

} // namespace quillbox
