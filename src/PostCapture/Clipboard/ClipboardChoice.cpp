#include "PostCapture/Clipboard/ClipboardChoice.h"

#include "PostCapture/Clipboard/Wayland/DataControl.h"
#include "Translation/Translate.h"

#include <QGuiApplication>
#include <QString>

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

/// What the toolkit shows windows on, or would, as it calls it; empty where there is nothing.
QString platform()
{
    if (auto name = QGuiApplication::platformName(); !name.isEmpty())
        return name;
    if (auto wanted = qEnvironmentVariable("QT_QPA_PLATFORM"); !wanted.isEmpty())
        return wanted.section(QLatin1Char(';'), 0, 0).section(QLatin1Char(':'), 0, 0);
    if (!qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        return QStringLiteral("wayland");
    return qEnvironmentVariableIsEmpty("DISPLAY") ? QString() : QStringLiteral("xcb");
}

bool isWayland(const QString& name)
{
    return name.startsWith(QLatin1String("wayland"));
}

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
        known->second == BackEnd::Toolkit && isWayland(platform())};
}

} // namespace

ClipboardChoice chooseClipboard()
{
    if (const auto wanted = qgetenv("QUILLBOX_CLIPBOARD_BACKEND"); !wanted.isEmpty())
        return forced(wanted.toStdString());
    const auto name = platform();
    if (name.isEmpty())
        return {BackEnd::None, translate("Clipboard", "There is no display")};
    if (name == QLatin1String("xcb"))
        return {BackEnd::X11, translate("Clipboard", "The desktop is an X11 display")};
    if (!isWayland(name))
        return {BackEnd::Toolkit,
            withArguments(translate("Clipboard", "The toolkit shows its windows on \"%1\""), {name.toStdString()})};
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
