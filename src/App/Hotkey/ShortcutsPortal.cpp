#include "App/Hotkey/ShortcutsPortal.h"

#include "App/Hotkey/HotkeyMath.h"
#include "App/Hotkey/KeyboardMap.h"

#include <QDBusMetaType>

namespace quillbox {

namespace ShortcutsPortal {

QDBusArgument& operator<<(QDBusArgument& argument, const Shortcut& shortcut)
{
    argument.beginStructure();
    argument << shortcut.id << shortcut.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, Shortcut& shortcut)
{
    argument.beginStructure();
    argument >> shortcut.id >> shortcut.properties;
    argument.endStructure();
    return argument;
}

void registerTypes()
{
    qDBusRegisterMetaType<Shortcut>();
    qDBusRegisterMetaType<QList<Shortcut>>();
}

QList<Shortcut> shortcutsIn(const QVariant& value)
{
    if (value.userType() != qMetaTypeId<QDBusArgument>())
        return {};
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != QLatin1String("a(sa{sv})"))
        return {};
    return qdbus_cast<QList<Shortcut>>(argument);
}

std::optional<QString> triggerFor(std::uint32_t keyCode, std::uint32_t modifiers)
{
    const auto key = KeyboardMap::x11KeyCode(keyCode);
    if (!key)
        return std::nullopt;
    QString trigger;
    if ((modifiers & HotkeyMath::command) != 0)
        trigger += QLatin1String("LOGO+");
    if ((modifiers & HotkeyMath::control) != 0)
        trigger += QLatin1String("CTRL+");
    if ((modifiers & HotkeyMath::option) != 0)
        trigger += QLatin1String("ALT+");
    if ((modifiers & HotkeyMath::shift) != 0)
        trigger += QLatin1String("SHIFT+");
    constexpr int codeOfOne = 10; // the X key codes of 1 2 3 4 5 6 7 8 9 0 follow one another
    return trigger + QString::number((*key - codeOfOne + 1) % 10);
}

} // namespace ShortcutsPortal
} // namespace quillbox
