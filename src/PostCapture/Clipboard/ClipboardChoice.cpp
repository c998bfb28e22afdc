#include "PostCapture/Clipboard/ClipboardChoice.h"

#include "Platform/WindowSystem.h"
#include "PostCapture/Clipboard/Wayland/DataControl.h"
#include "Translation/Translate.h"

#include <QByteArray>
#include <QtGlobal>

#include <algorithm>
#include <array>
#include <utility>

namespace quillbox {
namespace {

using BackEnd = ClipboardChoice::BackEnd;

constexpr std::array names{
    std::pair<std::string_view, BackEnd>{"x11", BackEnd::X11},
    std::pair<std::string_view, BackEnd>{"data-control", BackEnd::DataControl},
    std::pair<std::string_view, BackEnd>{"toolkit", BackEnd::Toolkit},
    std::pair<std::string_view, BackEnd>{"none", BackEnd::None},
};

/// What the environment variable asks for.
ClipboardChoice forced(const std::string& wanted)
{
    const auto* const known = std::ranges::find(names, std::string_view(wanted), &decltype(names)::value_type::first);
    if (known == names.end())
        return {BackEnd::None,
            withArguments(
                translate("Clipboard",
                    "QUILLBOX_CLIPBOARD_BACKEND is \"%1\", which is none of x11, data-control, toolkit and none"),
                {wanted})};
    return {known->second, withArguments(translate("Clipboard", "QUILLBOX_CLIPBOARD_BACKEND is \"%1\""), {wanted}),
        known->second == BackEnd::Toolkit && toolkitWindowSystem() == WindowSystem::Wayland};
}

} // namespace

ClipboardChoice chooseClipboard()
{
    if (const auto wanted = qgetenv("QUILLBOX_CLIPBOARD_BACKEND"); !wanted.isEmpty())
        return forced(wanted.toStdString());
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
    return {BackEnd::Toolkit,
        translate("Clipboard", "The compositor lets only a window that has the keyboard set the clipboard"), true};
}

std::string_view nameOf(BackEnd backEnd)
{
    return std::ranges::find(names, backEnd, &decltype(names)::value_type::second)->first;
}

} // namespace quillbox
