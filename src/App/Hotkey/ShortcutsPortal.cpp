#include "App/Hotkey/ShortcutsPortal.h"

#include "App/Hotkey/HotkeyMath.h"
#include "App/Hotkey/KeyboardMap.h"

#include <QDBusMetaType>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

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

QString readable(const QString& description)
{
    static const QRegularExpression modifier(QStringLiteral("<(\\w)(\\w*)>"));
    QString text;
    qsizetype end = 0;
    auto found = modifier.globalMatch(description);
    while (found.hasNext()) {
        const auto match = found.next();
        text += description.mid(end, match.capturedStart() - end) + match.captured(1).toUpper() + match.captured(2)
            + QLatin1Char('+');
        end = match.capturedEnd();
    }
    return text + description.mid(end);
}

bool isUsual(const QString& description, const QString& symbol)
{
    static const QRegularExpression between(QStringLiteral("[\\s+<>,]+"));
    const QStringList words = description.toLower().split(between, Qt::SkipEmptyParts);
    const auto has = [&words](const QStringList& names) {
        return std::ranges::any_of(names, [&words](const QString& name) { return words.contains(name); });
    };
    const bool isWithSuper = has({QStringLiteral("super"), QStringLiteral("meta"), QStringLiteral("logo")});
    const bool isWithMore = has({QStringLiteral("ctrl"), QStringLiteral("control"), QStringLiteral("alt")});
    const bool isKey = has({symbol.toLower()}) || (has({QStringLiteral("shift")}) && has({QStringLiteral("2")}));
    return isWithSuper && !isWithMore && isKey;
}

} // namespace ShortcutsPortal
} // namespace quillbox
