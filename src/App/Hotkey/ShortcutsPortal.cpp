#include "App/Hotkey/ShortcutsPortal.h"

#include "App/Hotkey/HotkeyMath.h"
#include "App/Hotkey/KeyboardMap.h"
#include "Platform/Portal/DesktopPortal.h"

#include <QCoro/QCoroDBus>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCall>

namespace quillbox {

namespace ShortcutsPortal {

namespace {

Offer::Lack lackBehind(const QDBusMessage& error)
{
    switch (DesktopPortal::failureToLook(error)) {
    case DesktopPortal::Failure::NoPortal:
        return Offer::Lack::NoPortal;
    case DesktopPortal::Failure::NoInterface:
        return Offer::Lack::NoInterface;
    case DesktopPortal::Failure::Gone:
    case DesktopPortal::Failure::Refused:
        break;
    }
    return Offer::Lack::NoAnswer;
}

} // namespace

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

QCoro::Task<Offer> look(QDBusConnection bus, int milliseconds)
{
    Offer offer;
    if (!bus.isConnected()) {
        offer.lack = Offer::Lack::NoBus;
        co_return offer;
    }
    const QDBusPendingCall introducing = DesktopPortal::introduce(bus, milliseconds);
    co_await introducing;
    const QDBusPendingCall asking = bus.asyncCall(DesktopPortal::propertiesOf(QLatin1String(interface)), milliseconds);
    const QDBusMessage reply = co_await asking;
    if (reply.type() == QDBusMessage::ErrorMessage) {
        offer.lack = lackBehind(reply);
        co_return offer;
    }
    const auto properties = qdbus_cast<QVariantMap>(reply.arguments().value(0));
    offer.version = properties.value(QStringLiteral("version")).toUInt();
    if (offer.version == 0)
        offer.lack = Offer::Lack::NoInterface;
    co_return offer;
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
