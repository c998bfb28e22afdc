#include "App/Hotkey/KDEShortcuts.h"

#include "Platform/ServiceReport.h"

#include <QCoro/QCoroDBus>
#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QKeySequence>
#include <QList>
#include <QStringList>

#include <algorithm>

namespace quillbox::KDEShortcuts {

namespace {

/// The answer's first argument, of type T; none where it is an error or something else.
template <typename T>
QCoro::Task<std::optional<T>> ask(QDBusConnection bus, QString method, QVariantList arguments, QString signature)
{
    auto question = QDBusMessage::createMethodCall(QStringLiteral("org.kde.kglobalaccel"),
        QStringLiteral("/kglobalaccel"), QStringLiteral("org.kde.KGlobalAccel"), method);
    question.setArguments(arguments);
    question.setAutoStartService(false);
    const QDBusPendingCall asking = bus.asyncCall(question, static_cast<int>(reportPatience.count()));
    const QDBusMessage reply = co_await asking;
    if (reply.type() != QDBusMessage::ReplyMessage || reply.signature() != signature)
        co_return std::nullopt;
    co_return qdbus_cast<T>(reply.arguments().value(0));
}

} // namespace

bool isDesktop()
{
    return qgetenv("XDG_CURRENT_DESKTOP").split(':').contains("KDE");
}

QStringList componentNames(const QString& session)
{
    const auto id = QStringLiteral(QUILLBOX_APP_ID);
    return {id, QLatin1String("token_") + session, id + session, session};
}

QCoro::Task<std::optional<QString>> keysInForce(QDBusConnection bus, QString session, QString action)
{
    if (!bus.isConnected())
        co_return std::nullopt;
    auto listing = ask<QList<QStringList>>(bus, QStringLiteral("allMainComponents"), QVariantList(), "aas");
    const std::optional<QList<QStringList>> components = co_await listing;
    if (!components)
        co_return std::nullopt;
    QStringList names;
    for (const QStringList& component : *components)
        names << component.value(0);
    const QStringList ours = componentNames(session);
    const auto component = std::ranges::find_if(ours, [&names](const QString& name) { return names.contains(name); });
    if (component == ours.end())
        co_return std::nullopt;

    QStringList identity;
    identity << *component << action << QString() << QString(); // the last two are for people
    QVariantList arguments;
    arguments << identity;
    auto asking = ask<QList<int>>(bus, QStringLiteral("shortcut"), arguments, "ai");
    const std::optional<QList<int>> keys = co_await asking;
    if (!keys)
        co_return std::nullopt;
    QStringList texts;
    for (const int key : *keys)
        if (key != 0)
            texts << QKeySequence(key).toString(QKeySequence::NativeText);
    co_return texts.join(QStringLiteral(", "));
}

} // namespace quillbox::KDEShortcuts
