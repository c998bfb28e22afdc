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

namespace {

QString modifierNames(std::uint32_t modifiers)
{
    QString names;
    if ((modifiers & HotkeyMath::command) != 0)
        names += QLatin1String("LOGO+");
    if ((modifiers & HotkeyMath::control) != 0)
        names += QLatin1String("CTRL+");
    if ((modifiers & HotkeyMath::option) != 0)
        names += QLatin1String("ALT+");
    if ((modifiers & HotkeyMath::shift) != 0)
        names += QLatin1String("SHIFT+");
    return names;
}

} // namespace

std::optional<QString> triggerFor(std::uint32_t keyCode, std::uint32_t modifiers)
{
    const auto key = KeyboardMap::x11KeyCode(keyCode);
    if (!key)
        return std::nullopt;
    constexpr int codeOfOne = 10; // the X key codes of 1 2 3 4 5 6 7 8 9 0 follow one another
    return modifierNames(modifiers) + QString::number((*key - codeOfOne + 1) % 10);
}

QString triggerForSymbol(const QString& symbol, std::uint32_t modifiers)
{
    return modifierNames(modifiers & ~HotkeyMath::shift) + symbol; // Shift is what makes the key give it
}

} // namespace ShortcutsPortal
} // namespace quillbox
